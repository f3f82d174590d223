// The message box answers and style bits of USER32, as windows.h spells them.
#pragma once

#define IDOK 1
#define IDCANCEL 2
#define IDYES 6
#define IDNO 7

#define MB_OK 0x0u
#define MB_YESNOCANCEL 0x3u
#define MB_YESNO 0x4u
#define MB_ICONSTOP 0x10u
#define MB_ICONEXCLAMATION 0x30u
#define MB_ICONINFORMATION 0x40u
#define MB_HELP 0x4000u
#define MB_SETFOREGROUND 0x10000u
