// The list of tables in the main window.
#pragma once

#include "Session.h"

#include <windows.h>

#include <vector>

class TableList
{
public:
    void Attach(HWND list); ///< makes the columns
    void Show(std::vector<TableState> tables);

    const std::vector<TableState>& Tables() const { return m_tables; }
    const TableState* Selected() const; ///< null without one

private:
    void AddColumn(const wchar_t* title, int width, int format) const;
    void AddRow(const TableState& table, int row) const;

    HWND m_list = nullptr;
    std::vector<TableState> m_tables;
};
