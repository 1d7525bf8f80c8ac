#pragma once

#include "text/UtCString.h"

#include <initializer_list>
#include <span>
#include <vector>

/// An ordered list of texts, addressed by zero-based position. Each text keeps its encoding.
///
/// No operation throws. When memory runs out, an addition leaves the list unchanged, and a new list or one that was to
/// be assigned to is empty.
class MYDB_EXPORT UtCStringList
{
public:
    UtCStringList() = default;
    explicit UtCStringList(const UtCString& text) noexcept;
    UtCStringList(std::initializer_list<UtCString> texts) noexcept;
    UtCStringList(const UtCStringList& other) noexcept;
    UtCStringList(UtCStringList&& other) noexcept = default;
    ~UtCStringList() = default;
    UtCStringList& operator=(const UtCStringList& other) noexcept;
    UtCStringList& operator=(UtCStringList&& other) noexcept = default;

    bool Add(const UtCString& text) noexcept; ///< appends a copy; false when memory ran out
    /// Appends copies of all items, in order; the list itself is allowed. False when memory ran out.
    bool AddList(const UtCStringList& list) noexcept;
    void Remove(int position) noexcept; ///< out of range: changes nothing
    void Clear() noexcept;
    /// The item at `position`, valid until the list changes; out of range: a spare text, empty each time it is handed
    /// out.
    UtCString& item(int position) noexcept;
    const UtCString& item(int position) const noexcept;
    int GetCount() const noexcept;
    /// Replaces `out` by all items with `separator` between them, in the encoding that `out` has. No item gives the
    /// empty text. `out` may be an item or the separator.
    void Concatenate(const UtCString& separator, UtCString& out) const noexcept;

protected:
    /// Appends the texts, taking their contents over: all or, when memory runs out, none of them (false; they are
    /// unchanged then). They must not be items of this list. The first time there is room made for three such groups.
    bool AddMoved(std::span<UtCString> texts) noexcept;

private:
    bool Holds(int position) const noexcept;
    bool Reserve(size_t count) noexcept; ///< false, and nothing changed, when memory ran out
    UtCString& Spare() const noexcept;

    std::vector<UtCString> m_items;
    mutable UtCString m_spare;
};
