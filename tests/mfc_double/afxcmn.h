#pragma once

#include <afxwin.h>

class AFX_DOUBLE CProgressCtrl : public CWnd
{
    DECLARE_DYNAMIC(CProgressCtrl)
public:
    CProgressCtrl();
    void SetRange32(int lower, int upper);
    void GetRange(int& lower, int& upper) const;
    int GetPos() const;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    int m_lower;
    int m_upper;
    int m_position;
};
