#pragma once

// Included behind <windows.h> and the library's headers, whatever their order.
static bool ChangedNamesAnswer()
{
    CMyServer server;
    server.SetPort(3307);

    CProgressCtrl bar;
    bar.SetRange32(0, 10);
    bar.SendMessage(PBM_DELTAPOS, 4);

    const CTime now = CTime::GetCurrentTime();

    VARIANT number = {};
    number.vt = VT_I4;
    number.lVal = 2;
    return server.GetPort() == 3307 && bar.GetPos() == 4 && now.GetTime() > 0 && CDateTime(number).GetValue() == 2;
}
