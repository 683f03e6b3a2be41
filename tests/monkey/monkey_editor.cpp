// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/monkey/EditorMonkey.h"
#include "tests/monkey/MonkeyRun.h"

#include <QApplication>

// monkey_editor [--seed S] [--events N]: does so many random things to the editor that the built
// library makes.
int main(int argc, char* argv[])
{
    MonkeyRun::prepare();
    const QApplication application(argc, argv);
    const MonkeyRun::Options options = MonkeyRun::options(QStringLiteral(MONKEY_PLUGIN));
    EditorMonkey monkey(options.plugin, options.seed);
    return MonkeyRun(options.events).run([&monkey] { return monkey.act(); });
}
