# SPDX-License-Identifier: GPL-3.0-or-later
zolta_test(tst_ButtonGroupController LIBRARIES zolta_controls)
zolta_test(tst_PullDownButtonController LIBRARIES zolta_controls)
zolta_test(tst_PushButtonController LIBRARIES zolta_controls)
