# SPDX-License-Identifier: GPL-3.0-or-later
target_sources(zolta_controls PRIVATE
    FaderController.cpp
    FaderController.h
    MeterController.cpp
    MeterController.h
    PeakMeterController.cpp
    PeakMeterController.h
    RoundGainReductionMeterController.cpp
    RoundGainReductionMeterController.h
    RoundMeterController.cpp
    RoundMeterController.h
    RoundShapes.cpp
    RoundShapes.h)
target_link_libraries(zolta_controls PUBLIC zolta_meters)
