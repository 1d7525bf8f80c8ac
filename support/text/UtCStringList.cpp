#include "text/UtCStringList.h"

#include "text/TextBuilder.h"

#include <algorithm>
#include <iterator>

UtCStringList::UtCStringList(const UtCString& text) noexcept
{
    Add(text);
}

UtCStringList::UtCStringList(std::initializer_list<UtCString> texts) noexcept
{
    for (const UtCString& text : texts) {
        if (!Add(text)) {
            Clear();
            return;
        }
    }
}

UtCStringList::UtCStringList(const UtCStringList& other) noexcept
{
    AddList(other);
}

UtCStringList& UtCStringList::operator=(const UtCStringList& other) noexcept
{
    if (this != &other)
        *this = UtCStringList(other);
    return *this;
}

bool UtCStringList::Add(const UtCString& text) noexcept
{
    UtCString copy(text);
    if (copy.GetByteLength() != text.GetByteLength())
        return false;
    try {
        m_items.push_back(std::move(copy));
        return true;
    } catch (...) {
        return false;
    }
}

bool UtCStringList::AddMoved(std::span<UtCString> texts) noexcept
{
    const size_t needed = m_items.size() + texts.size();
    if (needed > m_items.capacity() && !Reserve(std::max(3 * texts.size(), 2 * m_items.size())))
        return false;
    m_items.insert(m_items.end(), std::make_move_iterator(texts.begin()), std::make_move_iterator(texts.end()));
    return true;
}

bool UtCStringList::Reserve(size_t count) noexcept
{
    try {
        m_items.reserve(count);
        return true;
    } catch (...) {
        return false;
    }
}

bool UtCStringList::AddList(const UtCStringList& list) noexcept
{
    const size_t before = m_items.size();
    const size_t count = list.m_items.size();
    if (before == 0 && !Reserve(count))
        return false;
    for (size_t index = 0; index < count; ++index) {
        if (!Add(list.m_items[index])) {
            m_items.resize(before);
            return false;
        }
    }
    return true;
}

void UtCStringList::Remove(int position) noexcept
{
    if (Holds(position))
        m_items.erase(m_items.begin() + position);
}

void UtCStringList::Clear() noexcept
{
    m_items.clear();
}

UtCString& UtCStringList::item(int position) noexcept
{
    return Holds(position) ? m_items[static_cast<size_t>(position)] : Spare();
}

const UtCString& UtCStringList::item(int position) const noexcept
{
    return Holds(position) ? m_items[static_cast<size_t>(position)] : Spare();
}

int UtCStringList::GetCount() const noexcept
{
    return static_cast<int>(m_items.size());
}

void UtCStringList::Concatenate(const UtCString& separator, UtCString& out) const noexcept
{
    text::TextBuilder builder(out.GetEncodingType());
    for (size_t index = 0; index < m_items.size(); ++index) {
        if (index != 0)
            builder.AppendText(separator);
        builder.AppendText(m_items[index]);
    }
    out = builder.Take();
}

bool UtCStringList::Holds(int position) const noexcept
{
    return position >= 0 && static_cast<size_t>(position) < m_items.size();
}

UtCString& UtCStringList::Spare() const noexcept
{
    m_spare = UtCString();
    return m_spare;
}
