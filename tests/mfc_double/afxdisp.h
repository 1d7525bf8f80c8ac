#pragma once

#include <afxwin.h>

class AFX_DOUBLE COleDateTime
{
public:
    enum DateTimeStatus
    {
        error = -1,
        valid = 0,
        invalid = 1,
        null = 2
    };

    COleDateTime() throw();
    COleDateTime(DATE value) throw();
    DateTimeStatus GetStatus() const throw();
    void SetStatus(DateTimeStatus status) throw();
    operator DATE() const throw();

    DATE m_dt;
    DateTimeStatus m_status;
};
