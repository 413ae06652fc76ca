#pragma once

#define IDI_STICH 1
#define IDI_SET 2
#define IDC_MOVE 106
