// SPDX-License-Identifier: MIT
#pragma once

// The numbers of the resources; the resource compiler reads this as well.
#define IDS_APP_TITLE 103
#define IDI_HALVEX 107
#define IDI_SMALL 108
#define IDC_HALVEX 109
#define IDP_LOGO 134
