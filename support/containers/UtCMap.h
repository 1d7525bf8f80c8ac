#pragma once

#include "text/UtCString.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace containers {

/// What UtCMap needs to know of its keys. Equal keys have equal hashes. The quick forms take no function call, so that
/// a lookup which needs nothing else stays short: QuickHash gives false when only Hash knows the hash, IsSurelyEqual
/// gives false when the keys may still be equal.
template <typename K> struct KeyTraits
{
    static uint64_t Hash(const K& key) noexcept
    {
        const uint64_t product = std::hash<K>{}(key)*0x9E3779B97F4A7C15u;
        return product ^ (product >> 32);
    }
    static bool QuickHash(const K& key, uint64_t& hash) noexcept
    {
        hash = Hash(key);
        return true;
    }
    static bool IsSurelyEqual(const K& left, const K& right) noexcept { return left == right; }
};
template <> struct KeyTraits<UtCString>
{
    static uint64_t Hash(const UtCString& key) noexcept { return key.Hash(); }
    static bool QuickHash(const UtCString& key, uint64_t& hash) noexcept { return key.HashBytes(hash); }
    static bool IsSurelyEqual(const UtCString& left, const UtCString& right) noexcept
    {
        return left.HasSameBytes(right);
    }
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
    using Traits = containers::KeyTraits<K>;

public:
    struct Entry
    {
        K key;
        V value;
    };

    UtCMap() noexcept = default;
    UtCMap(UtCMap&& other) noexcept { Swap(other); }
    UtCMap& operator=(UtCMap&& other) noexcept
    {
        UtCMap taken(std::move(other));
        Swap(taken);
        return *this;
    }
    UtCMap(const UtCMap&) = delete;
    UtCMap& operator=(const UtCMap&) = delete;
    ~UtCMap() = default;

    /// Adds the pair unless the key is present. True when added; false when the key was present (its value stays) or
    /// memory ran out (the map is unchanged).
    bool Insert(const K& key, V value) noexcept
    {
        const auto hash = static_cast<uint32_t>(Traits::Hash(key));
        return m_slots[Locate(hash, key)].number == 0 && Append(hash, key, std::move(value));
    }

    /// Adds the pair or replaces the value of the present key. False when memory ran out; the map is then unchanged.
    bool Set(const K& key, V value) noexcept
    {
        const auto hash = static_cast<uint32_t>(Traits::Hash(key));
        const uint32_t number = m_slots[Locate(hash, key)].number;
        if (number == 0)
            return Append(hash, key, std::move(value));
        m_entries[number - 1].value = std::move(value);
        return true;
    }

    /// The value of `key`, or null when it is absent.
    const V* Find(const K& key) const noexcept
    {
        uint64_t hash;
        if (!Traits::QuickHash(key, hash))
            return FindThoroughly(key);
        for (size_t at = hash & m_mask;; at = (at + 1) & m_mask) {
            const Slot slot = m_slots[at];
            if (slot.number == 0)
                return nullptr;
            if (slot.hash != static_cast<uint32_t>(hash))
                continue;
            const Entry& entry = m_entries[slot.number - 1];
            return Traits::IsSurelyEqual(entry.key, key) ? &entry.value : FindThoroughly(key);
        }
    }
    V* Find(const K& key) noexcept { return const_cast<V*>(std::as_const(*this).Find(key)); }

    /// Removes `key`; false when it was absent.
    bool Remove(const K& key) noexcept
    {
        const size_t at = Locate(static_cast<uint32_t>(Traits::Hash(key)), key);
        const uint32_t number = m_slots[at].number;
        if (number == 0)
            return false;
        CloseGap(at);
        MoveLastEntryTo(number);
        return true;
    }

    /// Removes all entries and gives their memory back.
    void Clear() noexcept { *this = UtCMap(); }

    size_t GetCount() const noexcept { return m_entries.size(); }

    /// Iteration over the entries; ForEach calls `visit(key, value)` and lets it change the value.
    const Entry* begin() const noexcept { return m_entries.data(); }
    const Entry* end() const noexcept { return m_entries.data() + m_entries.size(); }
    template <typename F> void ForEach(F visit)
    {
        for (Entry& entry : m_entries)
            visit(std::as_const(entry.key), entry.value);
    }

private:
    // An open-addressing table of references into the dense entries; number 0 marks a free slot. At most half of the
    // slots are in use. The empty map has one free slot that all share and nobody writes to.
    struct Slot
    {
        uint32_t hash = 0;
        uint32_t number = 0;
    };
    static inline Slot noSlot;

    void Swap(UtCMap& other) noexcept
    {
        m_entries.swap(other.m_entries);
        m_table.swap(other.m_table);
        std::swap(m_slots, other.m_slots);
        std::swap(m_mask, other.m_mask);
    }

    // The lookup for keys whose quick forms do not tell.
    [[gnu::noinline]] const V* FindThoroughly(const K& key) const noexcept
    {
        const uint32_t number = m_slots[Locate(static_cast<uint32_t>(Traits::Hash(key)), key)].number;
        return number == 0 ? nullptr : &m_entries[number - 1].value;
    }

    // The slot of the key, or the free one where the search for it ends.
    size_t Locate(uint32_t hash, const K& key) const noexcept
    {
        size_t at = hash & m_mask;
        while (m_slots[at].number != 0 && (m_slots[at].hash != hash || !(m_entries[m_slots[at].number - 1].key == key)))
            at = (at + 1) & m_mask;
        return at;
    }

    bool Append(uint32_t hash, const K& key, V value) noexcept
    {
        try {
            if (m_table.size() < 2 * (m_entries.size() + 1))
                Rehash(m_table.empty() ? 16 : 2 * m_table.size());
            m_entries.push_back(Entry{key, std::move(value)});
        } catch (...) {
            return false;
        }
        if (!(m_entries.back().key == key)) {
            m_entries.pop_back(); // the copy of the key found no memory
            return false;
        }
        Place(m_table, hash, static_cast<uint32_t>(m_entries.size()));
        return true;
    }

    void Rehash(size_t slotCount)
    {
        std::vector<Slot> table(slotCount);
        for (const Slot& slot : m_table)
            if (slot.number != 0)
                Place(table, slot.hash, slot.number);
        m_table.swap(table);
        m_slots = m_table.data();
        m_mask = slotCount - 1;
    }

    static void Place(std::vector<Slot>& table, uint32_t hash, uint32_t number) noexcept
    {
        const size_t mask = table.size() - 1;
        size_t at = hash & mask;
        while (table[at].number != 0)
            at = (at + 1) & mask;
        table[at] = Slot{hash, number};
    }

    // Moves later members of the probe run up, so that no search stops at the freed slot too early.
    void CloseGap(size_t gap) noexcept
    {
        for (size_t at = (gap + 1) & m_mask; m_slots[at].number != 0; at = (at + 1) & m_mask) {
            const size_t home = m_slots[at].hash & m_mask;
            if (((at - home) & m_mask) < ((at - gap) & m_mask))
                continue;
            m_slots[gap] = m_slots[at];
            gap = at;
        }
        m_slots[gap] = Slot{};
    }

    void MoveLastEntryTo(uint32_t number) noexcept
    {
        const auto last = static_cast<uint32_t>(m_entries.size());
        if (number != last) {
            m_entries[number - 1] = std::move(m_entries[last - 1]);
            SlotOfNumber(static_cast<uint32_t>(Traits::Hash(m_entries[number - 1].key)), last).number = number;
        }
        m_entries.pop_back();
    }

    Slot& SlotOfNumber(uint32_t hash, uint32_t number) noexcept
    {
        size_t at = hash & m_mask;
        while (m_slots[at].number != number)
            at = (at + 1) & m_mask;
        return m_slots[at];
    }

    std::vector<Entry> m_entries;
    std::vector<Slot> m_table;
    Slot* m_slots = &noSlot;
    size_t m_mask = 0;
};
