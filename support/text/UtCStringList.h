#pragma once

#include "text/UtCString.h"

#include <initializer_list>
#include <vector>

/// An ordered list of texts, addressed by zero-based position.
class MYDB_EXPORT UtCStringList
{
public:
    UtCStringList() = default;
    explicit UtCStringList(const UtCString& text);
    UtCStringList(std::initializer_list<UtCString> texts);

    void Add(const UtCString& text);
    void AddList(const UtCStringList& list);
    void Remove(int position);
    void Clear();
    UtCString& item(int position);             ///< out of range: a spare empty text
    const UtCString& item(int position) const;
    int GetCount() const noexcept;
    void Concatenate(const UtCString& separator, UtCString& out) const;

private:
    std::vector<UtCString> m_items;
    UtCString m_spare;
};
