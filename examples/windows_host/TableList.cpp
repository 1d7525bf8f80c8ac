#include "TableList.h"

#include "Text.h"

#include <commctrl.h>

#include <utility>

namespace {

const wchar_t* NameOf(eTABLE_CHECK check)
{
    switch (check) {
    case TABLE_CHECK_OK:
        return L"in Ordnung";
    case TABLE_CHECK_REPAIRABLE:
        return L"besch\u00E4digt, reparierbar";
    default:
        return L"zerst\u00F6rt";
    }
}

} // namespace

void TableList::Attach(HWND list)
{
    m_list = list;
    ListView_SetExtendedListViewStyle(m_list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    AddColumn(L"Tabelle", 30, LVCFMT_LEFT);
    AddColumn(L"Art", 15, LVCFMT_LEFT);
    AddColumn(L"Zeilen", 14, LVCFMT_RIGHT);
    AddColumn(L"Gr\u00F6\u00DFe", 14, LVCFMT_RIGHT);
    AddColumn(L"Zustand", 27, LVCFMT_LEFT);
}

/// `width` in hundredths of the list.
void TableList::AddColumn(const wchar_t* title, int width, int format) const
{
    RECT area;
    ::GetClientRect(m_list, &area);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    column.fmt = format;
    column.cx = area.right * width / 100;
    column.pszText = const_cast<wchar_t*>(title);
    ::SendMessageW(m_list, LVM_INSERTCOLUMNW, 99, reinterpret_cast<LPARAM>(&column)); // behind the last one
}

void TableList::Show(std::vector<TableState> tables)
{
    m_tables = std::move(tables);
    ListView_DeleteAllItems(m_list);
    int row = 0;
    for (const TableState& table : m_tables)
        AddRow(table, row++);
    ListView_SetItemState(m_list, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

void TableList::AddRow(const TableState& table, int row) const
{
    const std::wstring cells[] = {Wide(table.name), table.engine, table.rows < 0 ? L"\u2013" : Grouped(table.rows),
                                  Grouped((table.bytes + 1023) / 1024) + L" KB", NameOf(table.check)};
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    for (const std::wstring& cell : cells) {
        item.pszText = const_cast<wchar_t*>(cell.c_str());
        ::SendMessageW(m_list, item.iSubItem == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        ++item.iSubItem;
    }
}

const TableState* TableList::Selected() const
{
    const int row = ListView_GetNextItem(m_list, -1, LVNI_SELECTED);
    return row >= 0 && static_cast<size_t>(row) < m_tables.size() ? &m_tables[static_cast<size_t>(row)] : nullptr;
}
