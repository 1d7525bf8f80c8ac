#pragma once

#include "text/UtCString.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

namespace containers {

/// The hash that UtCMap uses for its keys: equal keys must have equal hashes.
template <typename K> struct KeyHash
{
    static uint64_t Of(const K& key) noexcept { return std::hash<K>{}(key) * 0x9E3779B97F4A7C15u; }
};
template <> struct KeyHash<UtCString>
{
    static uint64_t Of(const UtCString& key) noexcept { return key.Hash(); }
};

} // namespace containers

/// A map from keys to values. Two keys are the same when K's equality says so; for UtCString that is the equality of
/// the texts, so a name found in one encoding is found in every other, and letter case counts.
///
/// Lookups take constant time. Iteration gives the entries in the order of insertion until the first Remove, which puts
/// the last entry into the gap. Pointers and iterators are valid until the next Insert, Set, Remove or Clear.
/// No operation throws. Holds at most 2^31 entries. Not safe for use by several threads when one of them changes it.
template <typename K, typename V> class UtCMap
{
public:
    UtCMap() = default;
    UtCMap(UtCMap&&) noexcept = default;
    UtCMap& operator=(UtCMap&&) noexcept = default;
    UtCMap(const UtCMap&) = delete;
    UtCMap& operator=(const UtCMap&) = delete;
    ~UtCMap() = default;

    struct Entry
    {
        K key;
        V value;
    };

    /// Adds the pair unless the key is present. True when added; false when the key was present (its value stays) or
    /// memory ran out (the map is unchanged).
    bool Insert(const K& key, V value) noexcept
    {
        const uint32_t hash = HashOf(key);
        if (Locate(hash, key) != nullptr)
            return false;
        return Append(hash, key, std::move(value));
    }

    /// Adds the pair or replaces the value of the present key. False when memory ran out; the map is then unchanged.
    bool Set(const K& key, V value) noexcept
    {
        const uint32_t hash = HashOf(key);
        if (Slot* slot = Locate(hash, key)) {
            m_entries[slot->number - 1].value = std::move(value);
            return true;
        }
        return Append(hash, key, std::move(value));
    }

    /// The value of `key`, or null when it is absent.
    const V* Find(const K& key) const noexcept
    {
        const Slot* slot = Locate(HashOf(key), key);
        return slot == nullptr ? nullptr : &m_entries[slot->number - 1].value;
    }
    V* Find(const K& key) noexcept { return const_cast<V*>(std::as_const(*this).Find(key)); }

    /// Removes `key`; false when it was absent.
    bool Remove(const K& key) noexcept
    {
        Slot* slot = Locate(HashOf(key), key);
        if (slot == nullptr)
            return false;
        const uint32_t number = slot->number;
        CloseGap(static_cast<size_t>(slot - m_slots.data()));
        MoveLastEntryTo(number);
        return true;
    }

    /// Removes all entries and gives their memory back.
    void Clear() noexcept
    {
        std::vector<Entry>().swap(m_entries);
        std::vector<Slot>().swap(m_slots);
    }

    size_t GetCount() const noexcept { return m_entries.size(); }

    /// Iteration over the entries. The keys are read-only; the values may be changed through the mutable form.
    const Entry* begin() const noexcept { return m_entries.data(); }
    const Entry* end() const noexcept { return m_entries.data() + m_entries.size(); }
    template <typename F> void ForEach(F visit)
    {
        for (Entry& entry : m_entries)
            visit(std::as_const(entry.key), entry.value);
    }

private:
    // An open-addressing table of references into the dense entries; number 0 marks a free slot.
    struct Slot
    {
        uint32_t hash = 0;
        uint32_t number = 0;
    };

    static uint32_t HashOf(const K& key) noexcept { return static_cast<uint32_t>(containers::KeyHash<K>::Of(key)); }

    const Slot* Locate(uint32_t hash, const K& key) const noexcept
    {
        if (m_entries.empty())
            return nullptr;
        const size_t mask = m_slots.size() - 1;
        for (size_t at = hash & mask;; at = (at + 1) & mask) {
            const Slot& slot = m_slots[at];
            if (slot.number == 0)
                return nullptr;
            if (slot.hash == hash && m_entries[slot.number - 1].key == key)
                return &slot;
        }
    }
    Slot* Locate(uint32_t hash, const K& key) noexcept
    {
        return const_cast<Slot*>(std::as_const(*this).Locate(hash, key));
    }

    bool Append(uint32_t hash, const K& key, V value) noexcept
    {
        try {
            m_entries.reserve(GrownCapacity());
            if (m_slots.size() < 2 * (m_entries.size() + 1))
                Rehash(m_slots.empty() ? 16 : 2 * m_slots.size());
            m_entries.push_back(Entry{key, std::move(value)});
        } catch (const std::bad_alloc&) {
            return false;
        }
        if (!(m_entries.back().key == key)) {
            m_entries.pop_back(); // the copy of the key found no memory
            return false;
        }
        Place(m_slots, hash, static_cast<uint32_t>(m_entries.size()));
        return true;
    }

    size_t GrownCapacity() const noexcept
    {
        return m_entries.size() < m_entries.capacity() ? m_entries.capacity() : 2 * m_entries.size() + 8;
    }

    void Rehash(size_t slotCount)
    {
        std::vector<Slot> slots(slotCount);
        for (const Slot& slot : m_slots)
            if (slot.number != 0)
                Place(slots, slot.hash, slot.number);
        m_slots.swap(slots);
    }

    static void Place(std::vector<Slot>& slots, uint32_t hash, uint32_t number) noexcept
    {
        const size_t mask = slots.size() - 1;
        size_t at = hash & mask;
        while (slots[at].number != 0)
            at = (at + 1) & mask;
        slots[at] = Slot{hash, number};
    }

    // Moves later members of the probe run up, so that no search stops at the freed slot too early.
    void CloseGap(size_t gap) noexcept
    {
        const size_t mask = m_slots.size() - 1;
        for (size_t at = (gap + 1) & mask; m_slots[at].number != 0; at = (at + 1) & mask) {
            const size_t home = m_slots[at].hash & mask;
            if (((at - home) & mask) < ((at - gap) & mask))
                continue;
            m_slots[gap] = m_slots[at];
            gap = at;
        }
        m_slots[gap] = Slot{};
    }

    void MoveLastEntryTo(uint32_t number) noexcept
    {
        const uint32_t last = static_cast<uint32_t>(m_entries.size());
        if (number != last) {
            m_entries[number - 1] = std::move(m_entries[last - 1]);
            SlotOfNumber(HashOf(m_entries[number - 1].key), last).number = number;
        }
        m_entries.pop_back();
    }

    Slot& SlotOfNumber(uint32_t hash, uint32_t number) noexcept
    {
        const size_t mask = m_slots.size() - 1;
        size_t at = hash & mask;
        while (m_slots[at].number != number)
            at = (at + 1) & mask;
        return m_slots[at];
    }

    std::vector<Entry> m_entries;
    std::vector<Slot> m_slots;
};
