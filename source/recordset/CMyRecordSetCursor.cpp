#include "CMyRecordSet.h"
#include "connection/Guarded.h"
#include "containers/UtArray.h"
#include "containers/UtCMap.h"
#include "metadata/TableCache.h"
#include "recordset/PendingChanges.h"
#include "recordset/ResultColumns.h"

#include <algorithm>
#include <new>

// Moving. The client's own read position is behind the row that was fetched last; a row that MoveTo made current is not
// fetched at all.

void CMyRecordSet::ClearPosition() noexcept
{
    m_currentRow = nullptr;
    m_lengths = nullptr;
    ClearFieldCache();
}

bool CMyRecordSet::FetchRow() noexcept
{
    m_currentRow = mysql_fetch_row(m_result.get());
    m_lengths = m_currentRow ? mysql_fetch_lengths(m_result.get()) : nullptr;
    if (!m_lengths)
        m_currentRow = nullptr;
    return m_currentRow != nullptr;
}

bool CMyRecordSet::MoveFirst()
{
    m_currentRowNumber = unknownRow;
    if (IsStreamed() && m_result && m_currentRow) {
        ClearFieldCache();
        return true; // KEPT K-31: a stream cannot be rewound, so its first row is whichever it stands on.
    }
    ClearPosition();
    if (!m_result)
        return false;
    if (IsStreamed())
        return FetchRow();
    if (static_cast<int32_t>(mysql_num_rows(m_result.get())) <= 0)
        return false;
    mysql_data_seek(m_result.get(), 0);
    return FetchRow();
}

bool CMyRecordSet::MoveNext()
{
    ClearPosition();
    if (!m_result)
        return false;
    // Only MoveTo knows the number, and never on a stream. KEPT K-47: a failed MoveTo leaves the client's read
    // position.
    if (m_currentRowNumber != unknownRow) {
        mysql_data_seek(m_result.get(), uint64_t{m_currentRowNumber} + 1);
        m_currentRowNumber = unknownRow;
    }
    return FetchRow();
}

bool CMyRecordSet::MoveTo(long row)
{
    if (IsStreamed())
        return false;
    ClearPosition();
    m_currentRowNumber = unknownRow;
    if (!m_result)
        return false;
    if (!m_rowIndex)
        connection::Guarded(false, [&] { return BuildRowIndex(), true; });
    const auto position = static_cast<size_t>(row); // a negative row is far beyond the last
    if (!m_rowIndex || position >= m_rowIndex->GetCount())
        return false;
    m_currentRow = (*m_rowIndex)[position];
    m_lengths = m_rowLengths.get() + position * m_fieldCount;
    m_currentRowNumber = static_cast<uint32_t>(row);
    return true;
}

/// Keeps the lengths of all values as well: the client tells them for the row fetched last only.
void CMyRecordSet::BuildRowIndex()
{
    const auto rowCount = static_cast<size_t>(mysql_num_rows(m_result.get()));
    auto index = std::make_unique<UtArray<char**>>();
    auto lengths = std::make_unique<unsigned long[]>(rowCount * m_fieldCount);
    if (!index->Reserve(rowCount))
        throw std::bad_alloc();
    mysql_data_seek(m_result.get(), 0);
    for (size_t row = 0; row < rowCount && FetchRow(); ++row) {
        index->Add(m_currentRow);
        std::copy_n(m_lengths, m_fieldCount, lengths.get() + row * m_fieldCount);
    }
    ClearPosition();
    m_rowIndex = std::move(index);
    m_rowLengths = std::move(lengths);
}

long CMyRecordSet::GetCurrentRow()
{
    if (m_currentRowNumber != unknownRow)
        return static_cast<long>(m_currentRowNumber);
    char** const row = m_currentRow;
    if (!row || !MoveTo(0)) // KEPT K-32: the search leaves the cursor on the first row.
        return -1;
    const auto found = std::find(m_rowIndex->begin(), m_rowIndex->end(), row);
    return found == m_rowIndex->end() ? -1 : static_cast<long>(found - m_rowIndex->begin());
}
