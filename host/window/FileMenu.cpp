// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/FileMenu.h"

#include "host/audio/AudioFormat.h"
#include "host/audio/AudioSession.h"
#include "host/window/DialogConnection.h"
#include "host/window/FileDialogs.h"
#include "host/window/Mixer.h"

#include <QFileInfo>
#include <QMenu>

namespace {

const QString recentName = QStringLiteral("recentSounds");
const QString soundKind = QStringLiteral("sound");
const QString sessionKind = QStringLiteral("session");

} // namespace

FileMenu::FileMenu(QMenu* menu, Mixer& mixer, Retranslator& texts)
    : QObject(menu)
    , m_mixer(mixer)
{
    texts.action(
        menu, [] { return tr("&Open Audio..."); }, QKeySequence::Open, this, &FileMenu::chooseSound,
        opensDialog);
    m_recent = texts.menu(menu, [] { return tr("Open &Recent"); });
    connect(m_recent, &QMenu::aboutToShow, this, &FileMenu::fillRecent);
    m_render = texts.action(
        menu, [] { return tr("Render &To File..."); },
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_R), this, &FileMenu::renderWanted, opensDialog);
    menu->addSeparator();
    addSessions(menu, texts);
    menu->addSeparator();
    connect(&mixer.mixerModel, &MixerModel::transportChanged, this, &FileMenu::listen);
    listen();
}

void FileMenu::addSessions(QMenu* menu, Retranslator& texts)
{
    const auto add = [&](const Retranslator::Text& text, const QKeySequence& keys, bool saves,
                         const Retranslator::Text& title,
                         void (FileMenu::*wanted)(const QString&)) {
        texts.action(
            menu, text, keys, this,
            [this, saves, title, wanted] {
                const QString file = askForSession(saves, title());
                if (!file.isEmpty())
                    (this->*wanted)(file);
            },
            opensDialog);
    };
    add([] { return tr("&New Session..."); }, QKeySequence::New, true,
        [] { return tr("New Session"); }, &FileMenu::newSessionWanted);
    add([] { return tr("Open S&ession..."); }, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O),
        false, [] { return tr("Open Session"); }, &FileMenu::openSessionWanted);
    add([] { return tr("&Save Session As..."); }, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
        true, [] { return tr("Save Session As"); }, &FileMenu::saveSessionWanted);
}

QString FileMenu::askForSound()
{
    return FileDialogs::open(
        window(), m_mixer.settings,
        {soundKind, tr("Open Audio"),
         tr("Sound files (*.wav *.flac *.ogg *.aif *.aiff *.mp3);;All files (*)")});
}

QString FileMenu::askForTarget(int channel)
{
    const AudioSession* transport = m_mixer.mixerModel.transport();
    if (!transport)
        return {};
    const QFileInfo input(transport->file());
    const QString title = tr("Render through %1").arg(m_mixer.mixerModel.shownName(channel));
    const auto complete = [](const QString& file, const QString&) {
        return AudioFormat::canWrite(file) ? file : file + QLatin1String(".wav");
    };
    return FileDialogs::save(window(), m_mixer.settings,
                             {QStringLiteral("render"), title,
                              tr("Sound files (*.wav *.flac *.ogg)"),
                              input.completeBaseName() + QLatin1String(" eq.wav"), complete});
}

void FileMenu::chooseSound()
{
    const QString file = askForSound();
    if (!file.isEmpty())
        openSound(file);
}

void FileMenu::openSound(const QString& file)
{
    AudioSession* transport = m_mixer.mixerModel.transport();
    if (transport && transport->openFile(file).isOk()) // failed() says what goes wrong
        Q_EMIT soundOpened();
}

void FileMenu::listen()
{
    const AudioSession* transport = m_mixer.mixerModel.transport();
    const auto follow = [this] {
        const AudioSession* now = m_mixer.mixerModel.transport();
        m_render->setEnabled(now && !now->file().isEmpty());
    };
    if (transport) {
        connect(transport, &AudioSession::fileOpened, this, &FileMenu::remember);
        connect(transport, &AudioSession::changed, this, follow);
        if (!transport->file().isEmpty())
            remember(transport->file());
    }
    follow();
    fillRecent();
}

void FileMenu::remember(const QString& file)
{
    const QString name = QFileInfo(file).absoluteFilePath();
    QStringList recent = m_mixer.settings.preference(recentName).toStringList();
    recent.removeAll(name);
    recent.prepend(name);
    m_mixer.settings.setPreference(recentName, QStringList(recent.mid(0, maxRecent)));
    fillRecent();
}

void FileMenu::fillRecent()
{
    m_recent->clear();
    const QStringList recent = m_mixer.settings.preference(recentName).toStringList();
    for (const QString& file : recent) {
        QString shown = QFileInfo(file).fileName(); // where an ampersand would mark a letter
        shown.replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction* action = m_recent->addAction(shown);
        action->setToolTip(file);
        connect(
            action, &QAction::triggered, this, [this, file] { openSound(file); }, opensDialog);
    }
    m_recent->setToolTipsVisible(true);
    m_recent->menuAction()->setEnabled(!recent.isEmpty());
}

QString FileMenu::askForSession(bool saves, const QString& title)
{
    FileDialogs::Question question{sessionKind, title, tr("Sessions (*.json);;All files (*)")};
    if (!saves)
        return FileDialogs::open(window(), m_mixer.settings, question);
    question.name = QStringLiteral("mix.json");
    question.complete = [](const QString& file, const QString&) {
        return QFileInfo(file).suffix().isEmpty() ? file + QLatin1String(".json") : file;
    };
    return FileDialogs::save(window(), m_mixer.settings, question);
}

QWidget* FileMenu::window() const
{
    return static_cast<QMenu*>(parent())->parentWidget()->window();
}

#include "moc_FileMenu.cpp"
