#pragma once

#define IDM_MAIN 100

#define IDM_EXIT 101
#define IDM_OPTIONS 102
#define IDM_FIRST_USE 103
#define IDM_ABOUT 104
/* Options on tab 1 is IDM_OPTIONS_TAB + 1, and so on. */
#define IDM_OPTIONS_TAB 200

#define IDC_STORED_OPTIONS 300
#define IDC_EVENTS 301
