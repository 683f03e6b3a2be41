// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/monkey/MixerMonkey.h"

#include "host/files/PresetFolder.h"
#include "host/files/SessionFile.h"
#include "host/window/EditorPresets.h"
#include "host/window/EditorWindow.h"
#include "parameters/ParameterTable.h"
#include "tests/monkey/Clock.h"
#include "tests/monkey/EventLog.h"
#include "tests/monkey/MonkeyRun.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QDockWidget>
#include <QFileDialog>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>

namespace {

constexpr int maxDepth = 6; // of dialogs' and menus' loops within one another

template <typename Item> Item* anyOf(const QList<Item*>& items, Dice& dice)
{
    return items.isEmpty() ? nullptr : items[dice.between(0, static_cast<int>(items.size()) - 1)];
}

// A dialog that could reach any file of the system.
QFileDialog* openFileDialog()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        if (dialog && dialog->isVisible())
            return dialog;
    }
    return nullptr;
}

} // namespace

MixerMonkey::MixerMonkey(QString plugin, const QString& folder, std::uint32_t seed)
    : m_plugin(std::move(plugin))
    , m_folder(folder)
    , m_dice(seed)
    , m_files(m_dice, folder + QLatin1String("/files"))
{
    m_user.setFiles(m_files.names());
    start();
}

MixerMonkey::~MixerMonkey() = default;

void MixerMonkey::start()
{
    EventLog::add("start");
    m_program = std::make_unique<MixerProgram>(m_plugin, m_folder);
    check(m_program->error().isEmpty(), qPrintable(m_program->error()));
}

QString MixerMonkey::act()
{
    Clock::advance(m_dice.pick({0, 0, 0, 1, 1, 5, 5, 20, 20, m_dice.oneIn(10) ? 1000 : 50}));
    const bool outermost = MonkeyRun::depth() <= 1;
    if (outermost && (!m_program->isOpen() || m_dice.oneIn(4000)))
        restart();
    else if (!answer())
        actOnWindows();
    return m_error;
}

// The end of the program and its next start.
void MixerMonkey::restart()
{
    EventLog::add("end");
    m_program.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const QString session = MixerProgram::sessionFile(m_folder);
    if (m_dice.oneIn(4))
        m_files.damage(session);
    if (m_dice.oneIn(8))
        m_files.damage(SettingsFile::standardFile());
    for (const QString& file : {session, SettingsFile::standardFile()}) {
        const QDir folder = QFileInfo(file).dir();
        for (const QString& name : folder.entryList({QStringLiteral("*.damaged*")}, QDir::Files))
            QFile::remove(folder.filePath(name));
    }
    start();
}

void MixerMonkey::actOnWindows()
{
    QWidget* window = anyWindow();
    const int choice = m_dice.between(1, 1000);
    if (choice <= 750)
        return m_user.act(window);
    if (choice <= 820)
        return menu();
    if (choice <= 860)
        return windowEvent(window);
    static constexpr std::array acts = {
        &MixerMonkey::panel,  &MixerMonkey::panel,     &MixerMonkey::editor,
        &MixerMonkey::editor, &MixerMonkey::clipboard, &MixerMonkey::audio,
        &MixerMonkey::write,  &MixerMonkey::language,  &MixerMonkey::files,
        &MixerMonkey::save,   &MixerMonkey::channels,  &MixerMonkey::checkValues};
    (this->*acts[static_cast<std::size_t>(choice) % acts.size()])();
}

// Whether something is open that has to be answered first, or that is answered now.
bool MixerMonkey::answer()
{
    QWidget* dialog = QApplication::activeModalWidget();
    QFileDialog* fileDialog = dialog ? openFileDialog() : nullptr;
    if (fileDialog && dialog == fileDialog) {
        answer(*fileDialog);
        return true;
    }
    const bool tooDeep = MonkeyRun::depth() > maxDepth;
    if (dialog && (fileDialog || tooDeep || m_dice.oneIn(5))) {
        answerDialog(dialog);
        return true;
    }
    if (tooDeep)
        m_user.letGo(anyWindow());
    return tooDeep;
}

// No other event reaches it, so that no file outside the folder is touched.
void MixerMonkey::answer(QFileDialog& dialog)
{
    const QString name = m_files.anyName();
    const bool accepts = !m_dice.oneIn(3);
    EventLog::add("file dialog", accepts);
    if (accepts && !name.endsWith(QLatin1Char('/'))) {
        dialog.selectFile(name);
        static_cast<QDialog&>(dialog).accept();
    } else {
        dialog.reject();
    }
}

void MixerMonkey::answerDialog(QWidget* dialog)
{
    EventLog::add("dialog");
    if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
        if (QAbstractButton* button = anyOf(box->buttons(), m_dice))
            return button->click();
    }
    const QString text = m_user.anyText();
    const bool accepts = m_dice.oneIn(2);
    if (auto* input = qobject_cast<QInputDialog*>(dialog)) {
        input->setTextValue(text);
        return accepts ? input->accept() : input->reject();
    }
    dialog->close();
}

QWidget* MixerMonkey::anyWindow()
{
    QWidget* dialog = QApplication::activeModalWidget();
    if (dialog && !m_dice.oneIn(5))
        return dialog;
    QWidget* editor = anyEditor();
    return editor && m_dice.oneIn(2) ? editor : &m_program->window();
}

EditorWindow* MixerMonkey::anyEditor() { return anyOf(m_program->window().editors(), m_dice); }

void MixerMonkey::menu()
{
    QAction* action = anyOf(anyWindow()->findChildren<QAction*>(), m_dice);
    EventLog::add("menu", action && action->isEnabled());
    if (action && action->isEnabled() && !action->menu())
        action->trigger();
}

void MixerMonkey::windowEvent(QWidget* window)
{
    const int choice = m_dice.between(1, 9);
    const QPoint point(m_dice.between(-100, 3000), m_dice.between(-100, 2000));
    EventLog::add("window", choice, point.x());
    if (choice == 1)
        window->resize(point.x(), point.y());
    else if (choice == 2)
        window->move(point);
    else if (choice == 3)
        window->setWindowState(m_dice.pick(
            {Qt::WindowNoState, Qt::WindowMinimized, Qt::WindowMaximized, Qt::WindowFullScreen}));
    else if (choice == 4)
        window->activateWindow();
    else if (choice == 5)
        window->grab(QRect(point / 4, QSize(200, 150)));
    else if (choice == 6)
        window->close();
    else if (choice == 7)
        m_program->window().show();
    else if (choice == 8 && m_dice.oneIn(10))
        m_program->window().quit();
    else
        QApplication::alert(window);
}

void MixerMonkey::panel()
{
    QWidget* window = anyEditor();
    QDockWidget* dock = window ? anyOf(window->findChildren<QDockWidget*>(), m_dice) : nullptr;
    const int choice = m_dice.between(1, 5);
    EventLog::add("panel", choice, dock ? 1 : 0);
    if (!dock)
        return;
    if (choice == 1)
        dock->setFloating(!dock->isFloating());
    else if (choice == 2)
        dock->toggleViewAction()->trigger();
    else if (choice == 3)
        dock->resize(m_dice.between(0, 900), m_dice.between(0, 900));
    else if (choice == 4)
        dock->close();
    else
        static_cast<QMainWindow*>(window)->addDockWidget(
            m_dice.pick({Qt::LeftDockWidgetArea, Qt::RightDockWidgetArea, Qt::TopDockWidgetArea,
                         Qt::BottomDockWidgetArea}),
            dock);
}

void MixerMonkey::channels()
{
    const int count = 2 * m_dice.between(minChannelCount / 2, maxChannelCount / 2);
    EventLog::add("channels", count);
    m_program->mixer().mixerModel.chooseChannelCount(count);
}

// Now and then one that there may not be.
int MixerMonkey::anyChannel()
{
    const int count = m_program->mixer().mixerModel.channelCount();
    return m_dice.between(0, (m_dice.oneIn(8) ? maxChannelCount : count) - 1);
}

void MixerMonkey::editor()
{
    const int channel = anyChannel();
    const int choice = m_dice.between(1, 6);
    EventLog::add("editor", choice, channel);
    if (choice <= 2) {
        m_program->window().openEditor(channel, m_program->mixer().mixerModel.isPair(channel));
        return;
    }
    EditorWindow* window = anyEditor();
    if (!window)
        return;
    if (choice == 3)
        window->close();
    else if (choice == 4)
        window->setScale(m_dice.between(40, 450) / 100.0);
    else if (choice == 5)
        window->setMeasured(m_dice.oneIn(2));
    else
        window->presets().save(m_user.anyText());
}

void MixerMonkey::clipboard()
{
    const int choice = m_dice.between(1, 4);
    EventLog::add("clipboard", choice);
    QClipboard* board = QApplication::clipboard();
    QString text = board->text();
    if (choice == 1)
        return board->setText(m_user.anyText());
    if (choice == 2)
        return m_program->mixer().mixerModel.copyToClipboard(anyChannel());
    if (choice == 3)
        return board->clear();
    if (!text.isEmpty())
        text[m_dice.between(0, static_cast<int>(text.size()) - 1)] = QChar(m_dice.between(0, 500));
    board->setText(text);
}

void MixerMonkey::audio()
{
    const int choice = m_dice.between(1, 6);
    EventLog::add("audio", choice);
    AudioSession& audio = m_program->audio();
    if (choice == 1)
        static_cast<void>(audio.openFile(m_files.anyName()));
    else if (choice == 2)
        static_cast<void>(audio.play());
    else if (choice == 3)
        audio.setPosition(m_dice.anyInt() / 10.0);
    else if (choice == 4)
        audio.setOutput(m_dice.anyInt());
    else
        m_program->mixer().mixerModel.setTransport(m_dice.oneIn(3) ? nullptr : &audio);
}

void MixerMonkey::write()
{
    const auto channel = static_cast<unsigned short>(anyChannel());
    const int value = m_dice.anyInt();
    const int index = m_dice.between(0, static_cast<int>(parameterCount + stripParameterCount) - 1);
    EventLog::add("write", index, value);
    HostMemory& memory = m_program->mixer().memory;
    const auto place = static_cast<std::size_t>(index);
    if (place < parameterCount)
        memory.setValue(parameterId(place), channel, value, 0, 0, 1);
    else
        memory.setValue(stripId(static_cast<StripParameter>(place - parameterCount)), channel,
                        value, 0, 0, 1);
}

void MixerMonkey::language()
{
    const int choice = m_dice.between(0, static_cast<int>(languages.size()) - 1);
    EventLog::add("language", choice);
    m_program->mixer().language.choose(languages[static_cast<std::size_t>(choice)]);
}

void MixerMonkey::files()
{
    m_files.writeAny();
    if (!m_dice.oneIn(3))
        return;
    const PresetFolder presets(PresetFolder::standardFolder());
    const QStringList names = presets.names();
    EventLog::add("preset", static_cast<int>(names.size()));
    if (!names.isEmpty())
        m_files.damage(
            presets.fileOf(names[m_dice.between(0, static_cast<int>(names.size()) - 1)]));
}

void MixerMonkey::save()
{
    const QString session = MixerProgram::sessionFile(m_folder);
    const int choice = m_dice.between(1, 8);
    EventLog::add("save", choice);
    const QString folder = QFileInfo(session).path();
    if (choice == 1 && QDir(folder).removeRecursively())
        m_files.damage(folder); // there is a file in its place
    else if (choice <= 4)
        QFile::remove(folder);
    const bool saved = m_program->session().save();
    if (saved && QFileInfo::exists(session))
        check(SessionFile::read(session).isOk(), "a session that was saved cannot be read");
}

void MixerMonkey::checkValues()
{
    const HostMemory& memory = m_program->mixer().memory;
    for (int channel = 0; channel < maxChannelCount; ++channel) {
        for (std::size_t i = 0; i < parameterCount; ++i)
            check(parameterTable[i].allows(memory.values(channel)[i]), "a value beyond its range");
    }
    if (MonkeyRun::depth() <= 1 && !m_user.isHolding() &&
        !m_program->mixer().mixerModel.history().isInStep())
        checkHistory();
}

// What is undone to the beginning and done again is what it was.
void MixerMonkey::checkHistory()
{
    EventLog::add("history");
    const HostMemory& memory = m_program->mixer().memory;
    QUndoStack& stack = m_program->mixer().mixerModel.history().stack();
    const auto all = [&memory] {
        std::vector<HostMemory::Values> values;
        for (int channel = 0; channel < maxChannelCount; ++channel)
            values.push_back(memory.values(channel));
        return values;
    };
    const std::vector<HostMemory::Values> before = all();
    const int index = stack.index();
    const int steps = std::min(index, m_dice.between(1, 50));
    stack.setIndex(index - steps);
    stack.setIndex(index);
    check(stack.index() == index && all() == before, "undo and redo are not each other's opposite");
}

void MixerMonkey::check(bool holds, const char* sentence)
{
    if (!holds && m_error.isEmpty())
        m_error = QString::fromUtf8(sentence);
}
