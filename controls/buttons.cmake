# SPDX-License-Identifier: GPL-3.0-or-later
target_sources(zolta_controls PRIVATE
    ButtonGroupController.cpp
    ButtonGroupController.h
    PullDownButtonController.cpp
    PullDownButtonController.h
    PushButtonController.cpp
    PushButtonController.h)
