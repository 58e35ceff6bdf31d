#pragma once
// Ids of the dialog templates and their controls, for the resource compiler and the code.

#define IDD_MESSAGES 1000
#define IDD_PROGRESS 1001

#define IDC_LABEL (-1)
#define IDC_MESSAGES 1000
#define IDC_PROGRESS 1001
#define IDC_STOP 1002
#define IDC_TOTAL 1003
#define IDC_CURRENT 1004
