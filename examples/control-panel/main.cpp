// SPDX-License-Identifier: GPL-3.0-or-later
// A form of controls over a memory of its own.
//
//   control-panel [PICTURE.png]     writes a picture instead of opening a window
#include "Panel.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    Memory memory;
    Panel panel(memory);
    panel.setTone(-60);
    if (argc > 1) {
        QCoreApplication::processEvents(); // the buttons join their group
        return panel.grab().save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
    }
    panel.show();
    return QApplication::exec();
}
