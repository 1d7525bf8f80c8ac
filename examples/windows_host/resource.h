// The numbers of the main window and its controls.
#pragma once

#define IDR_MAIN_WINDOW 100

#define IDC_HOST 1001
#define IDC_PORT 1002
#define IDC_USER 1003
#define IDC_PASSWORD 1004
#define IDC_DATABASE 1005
#define IDC_TABLES 1006
#define IDC_PROGRESS 1007
#define IDC_STATUS 1008

#define IDC_CONNECT 1101
#define IDC_CHECK 1102
#define IDC_REPAIR 1103
#define IDC_DUMP 1104
