// SPDX-License-Identifier: GPL-3.0-or-later
// A form of controls over a memory of its own.
//
//   control-panel [PICTURE.png]     writes a picture instead of opening a window
#include "Panel.h"

#include <zolta/controls/ButtonGroupController.h>

#include <QApplication>
#include <QTimer>

using CommonController_MemAPI::ButtonGroupController;

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    Memory memory;
    Panel panel(memory);
    panel.setTone(-60);
    const auto writePicture = [&] {
        QCoreApplication::exit(panel.grab().save(QString::fromLocal8Bit(argv[1])) ? 0 : 1);
    };
    if (argc > 1) // once the buttons have joined their group and show its value
        QTimer::singleShot(2 * ButtonGroupController::UpdateDelay, &panel, writePicture);
    else
        panel.show();
    return QApplication::exec();
}
