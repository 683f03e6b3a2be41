// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/HelpMenu.h"

#include "host/window/Retranslator.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMenu>
#include <QVBoxLayout>

#include <array>

namespace {

constexpr int textWidth = 460;

struct Entry
{
    const char* head;
    const char* text;
};

constexpr std::array guide = {
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Open a song"),
          QT_TRANSLATE_NOOP("HelpMenu", "File > Open Audio, or drop the file on the window. The "
                                        "marked strip plays it; Space plays and stops.")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Shape it"),
          QT_TRANSLATE_NOOP("HelpMenu", "The Edit key of a strip opens its equalizer. Drag the "
                                        "coloured handles in the curve, or turn the knobs: up is "
                                        "more. Presets has good places to begin.")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Compare"),
          QT_TRANSLATE_NOOP("HelpMenu", "A and B above the equalizer are two settings (Ctrl+B "
                                        "switches). The EQ key of the strip switches the "
                                        "equalizer off and on. Bypass plays past it at equal "
                                        "loudness; Listen, while held, plays only what one band "
                                        "changes.")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Keep it"),
          QT_TRANSLATE_NOOP("HelpMenu", "The session is saved by itself. File > Save Session As "
                                        "keeps it under a name, Presets > Save as Preset keeps "
                                        "the settings of one equalizer.")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Write a file"),
          QT_TRANSLATE_NOOP("HelpMenu", "File > Render To File sends the whole song through the "
                                        "equalizer of the marked strip into a new file.")},
};

constexpr std::array keys = {
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Space"), QT_TRANSLATE_NOOP("HelpMenu", "play or stop")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Ctrl+Home, Ctrl+Shift+L"),
          QT_TRANSLATE_NOOP("HelpMenu", "return to the start; loop")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Ctrl+O, Ctrl+Shift+R"),
          QT_TRANSLATE_NOOP("HelpMenu", "open a song; in the mixer: render it to a file")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Ctrl+E, Ctrl+M"),
          QT_TRANSLATE_NOOP("HelpMenu", "from the mixer to the editor, and back")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Ctrl+Z, Ctrl+Shift+Z"),
          QT_TRANSLATE_NOOP("HelpMenu", "undo and redo every gesture")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Ctrl+B"),
          QT_TRANSLATE_NOOP("HelpMenu", "switch between A and B")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Ctrl+Shift+B, L"),
          QT_TRANSLATE_NOOP("HelpMenu", "bypass at equal loudness; while held, hear only what the "
                                        "band changes")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Ctrl+PgUp, Ctrl+PgDown"),
          QT_TRANSLATE_NOOP("HelpMenu", "previous preset; next preset")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Ctrl+R, Ctrl+L"),
          QT_TRANSLATE_NOOP("HelpMenu", "measured response; table of parameters")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Knob: drag, wheel, arrow keys"),
          QT_TRANSLATE_NOOP("HelpMenu", "turn it; with Shift, finely")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Knob: Ctrl+click"),
          QT_TRANSLATE_NOOP("HelpMenu", "back to its default")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Knob or number: double click"),
          QT_TRANSLATE_NOOP("HelpMenu", "type a value, such as 1.25k or +3")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Curve: drag a handle"),
          QT_TRANSLATE_NOOP("HelpMenu", "frequency and gain; with Alt frequency alone, with Ctrl "
                                        "gain alone, with Shift the width of a middle band")},
    Entry{QT_TRANSLATE_NOOP("HelpMenu", "Tab"),
          QT_TRANSLATE_NOOP("HelpMenu", "to the next control; Space presses a key")},
};

QString translated(const char* english) { return QCoreApplication::translate("HelpMenu", english); }

QString guideText()
{
    QString html;
    for (const Entry& entry : guide)
        html += QStringLiteral("<p><b>%1.</b> %2</p>")
                    .arg(translated(entry.head).toHtmlEscaped(),
                         translated(entry.text).toHtmlEscaped());
    return html;
}

QString keysText()
{
    QString rows;
    for (const Entry& entry : keys)
        rows += QStringLiteral("<tr><td style='padding-right: 18px'><b>%1</b></td><td>%2</td></tr>")
                    .arg(translated(entry.head).toHtmlEscaped(),
                         translated(entry.text).toHtmlEscaped());
    return QStringLiteral("<table cellspacing='4'>%1</table>").arg(rows);
}

QString aboutText()
{
    const QString purpose = translated(QT_TRANSLATE_NOOP(
        "HelpMenu", "A channel equalizer whose curve is what is heard, and a mixer to hear it "
                    "with."));
    const QString licence = translated(QT_TRANSLATE_NOOP(
        "HelpMenu", "Free software under the GNU General Public License, version 3 or later."));
    return QStringLiteral("<h2>Zolta %1</h2><p>%2</p><p>%3</p><p>Qt %4</p>")
        .arg(QStringLiteral(ZOLTA_VERSION), purpose.toHtmlEscaped(), licence.toHtmlEscaped(),
             QLatin1String(qVersion()));
}

void show(QWidget* parent, const QString& title, const QString& html)
{
    auto* dialog = new QDialog(parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(title);
    auto* text = new QLabel(html, dialog);
    text->setTextFormat(Qt::RichText);
    text->setWordWrap(true);
    text->setMinimumWidth(textWidth);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    auto* column = new QVBoxLayout(dialog);
    column->addWidget(text, 1);
    column->addWidget(buttons);
    dialog->show();
}

} // namespace

void fillHelpMenu(QMenu* menu, Retranslator& texts)
{
    const auto add = [&](const char* english, const QKeySequence& shortcut, QString (*content)()) {
        texts.action(
            menu, [english] { return translated(english); }, shortcut, menu,
            [menu, english, content] {
                const QString title = translated(english).remove(QLatin1Char('&'));
                show(menu->parentWidget()->window(), title, content());
            });
    };
    add(QT_TRANSLATE_NOOP("HelpMenu", "&Guide"), QKeySequence(Qt::Key_F1), &guideText);
    add(QT_TRANSLATE_NOOP("HelpMenu", "&Keys and Mouse"), QKeySequence(Qt::CTRL | Qt::Key_F1),
        &keysText);
    add(QT_TRANSLATE_NOOP("HelpMenu", "&About Zolta"), QKeySequence(), &aboutText);
}
