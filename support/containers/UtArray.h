#pragma once

#include "log/UtAppLogging.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

class CMyField;
class CTableCache;

namespace containers {

/// How the warnings of UtArray<T> spell the element type: the same on every compiler, as log readers search for it.
template <typename T> struct ElementName
{
    static constexpr std::string_view value = "T";
};
template <> struct ElementName<unsigned int>
{
    static constexpr std::string_view value = "unsigned int";
};
template <> struct ElementName<char**>
{
    static constexpr std::string_view value = "char **";
};
template <> struct ElementName<CMyField*>
{
    static constexpr std::string_view value = "class CMyField *";
};
template <> struct ElementName<CTableCache*>
{
    static constexpr std::string_view value = "class CTableCache *";
};
/// An owning pointer reports as the plain pointer that it stands for.
template <typename T> struct ElementName<std::shared_ptr<T>> : ElementName<T*>
{
};
template <typename T, typename D> struct ElementName<std::unique_ptr<T, D>> : ElementName<T*>
{
};

/// "UtArray<" + element name + ">::" + member, zero-terminated, built by the compiler.
template <const std::string_view& element, const std::string_view& member> struct FunctionName
{
    static constexpr auto Build()
    {
        constexpr std::string_view before = "UtArray<";
        constexpr std::string_view between = ">::";
        std::array<char, before.size() + element.size() + between.size() + member.size() + 1> name{};
        size_t at = 0;
        for (std::string_view piece : {before, element, between, member})
            for (char c : piece)
                name[at++] = c;
        return name;
    }
    static constexpr auto value = Build();
};

} // namespace containers

/// A growable array of values or pointers with bounds-checked access.
///
/// A bad position never fails: it writes one warning through UtAppLogging::LogWarning with the key
/// "UtArray.operator[].invalid index", this header's path and line, and the function as
/// "UtArray<class CTableCache *>::operator []" (removal: "...::RemoveAt"), and access yields a spare element. The spare
/// element is a fresh T{} each time, so that nothing written into it by an earlier bad access can come back.
/// No operation throws; plain pointers are not owned. Not safe for use by several threads at once.
template <typename T> class UtArray
{
public:
    UtArray() = default;
    UtArray(UtArray&&) noexcept = default;
    UtArray& operator=(UtArray&&) noexcept = default;
    UtArray(const UtArray&) = delete;
    UtArray& operator=(const UtArray&) = delete;
    ~UtArray() = default;

    /// Appends. False when memory ran out; the array is then unchanged.
    bool Add(T value) noexcept
    {
        try {
            m_items.push_back(std::move(value));
            return true;
        } catch (...) {
            return false;
        }
    }

    /// Makes room for `count` elements in all, so that further calls of Add up to there cannot fail. False when memory
    /// ran out or `count` is beyond what can be addressed; the array is then unchanged.
    bool Reserve(size_t count) noexcept
    {
        if (count > m_items.max_size())
            return false;
        try {
            m_items.reserve(count);
            return true;
        } catch (...) {
            return false;
        }
    }

    size_t GetCount() const noexcept { return m_items.size(); }
    bool IsEmpty() const noexcept { return m_items.empty(); }

    /// The element at `position`, valid until the array grows or shrinks; the spare element when out of range.
    T& operator[](size_t position) noexcept { return position < m_items.size() ? m_items[position] : Spare(__LINE__); }
    const T& operator[](size_t position) const noexcept
    {
        return position < m_items.size() ? m_items[position] : Spare(__LINE__);
    }

    /// Removes one element; those behind it move up. False, with a warning and no change, when out of range.
    bool RemoveAt(size_t position) noexcept
    {
        if (position >= m_items.size()) {
            Warn(__LINE__, containers::FunctionName<elementName, removeAt>::value.data());
            return false;
        }
        m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(position));
        return true;
    }

    /// Removes all elements and gives their memory back.
    void RemoveAll() noexcept { std::vector<T>().swap(m_items); }

    /// The elements in order, valid until the array grows or shrinks. May be null when the array is empty.
    T* GetData() noexcept { return m_items.data(); }
    const T* GetData() const noexcept { return m_items.data(); }

    T* begin() noexcept { return m_items.data(); }
    T* end() noexcept { return m_items.data() + m_items.size(); }
    const T* begin() const noexcept { return m_items.data(); }
    const T* end() const noexcept { return m_items.data() + m_items.size(); }

private:
    static constexpr std::string_view elementName = containers::ElementName<T>::value;
    static constexpr std::string_view access = "operator []";
    static constexpr std::string_view removeAt = "RemoveAt";

    T& Spare(long line) const noexcept
    {
        Warn(line, containers::FunctionName<elementName, access>::value.data());
        m_spare = T{};
        return m_spare;
    }

    static void Warn(long line, const char* function) noexcept
    {
        // KEPT K-62: a bad removal is reported under the key of the access operator too.
        UtAppLogging::LogWarning(__FILE__, line, "UtArray.operator[].invalid index", function);
    }

    std::vector<T> m_items;
    mutable T m_spare{};
};
