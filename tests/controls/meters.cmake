# SPDX-License-Identifier: GPL-3.0-or-later
zolta_test(tst_MeterController LIBRARIES zolta_controls)
zolta_test(tst_RoundMeters LIBRARIES zolta_controls)
zolta_test(tst_FaderController LIBRARIES zolta_controls)
