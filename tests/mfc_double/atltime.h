#pragma once

#include <afxwin.h>

class AFX_DOUBLE CTime
{
public:
    static CTime WINAPI GetCurrentTime() throw();

    CTime() throw();
    CTime(__time64_t time) throw();
    CTime(int year, int month, int day, int hour, int minute, int second, int daylightSaving = -1);
    __time64_t GetTime() const throw();
    int GetYear() const throw();
    int GetMonth() const throw();
    int GetDay() const throw();
    int GetHour() const throw();
    int GetMinute() const throw();
    int GetSecond() const throw();

private:
    __time64_t m_time;
};
