// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/monkey/MixerProgram.h"

#include <QDesktopServices>
#include <QMessageBox>
#include <QPushButton>

#include <limits>

namespace {

class NoDevice : public AudioDevice
{
public:
    std::vector<AudioDeviceInfo> list() const override { return {}; }
    int rateFor(const AudioDeviceSettings&, int) const override { return 0; }
    Status open(const AudioDeviceSettings&, int) override
    {
        return Error{QStringLiteral("There is no sound device.")};
    }
    Status start(AudioCallback&) override { return Error{QStringLiteral("It is not open.")}; }
    void close() override {}
    QString name() const override { return {}; }
    int rate() const override { return 48000; }
    Status status() const override { return {}; }
    bool mayComeBack() const override { return false; }
    std::int64_t calls() const override { return 0; }
};

EditorSettings linearKnobs()
{
    EditorSettings settings;
    settings.dialMode = 2;
    return settings;
}

} // namespace

MixerProgram::MixerProgram(const QString& plugin, const QString& folder)
    : m_loaded(m_mixer.library.load(plugin))
    , m_audio(m_bus, std::make_unique<NoDevice>())
    , m_window(m_mixer, linearKnobs())
    , m_session(
          m_mixer, [this](const QString& text) { report(text); }, std::numeric_limits<int>::max())
{
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &m_fileManager, "open");
    m_mixer.settings.setReporter([this](const QString& text) { report(text); });
    m_session.setAsker([this](const QString& text) { return endsUnsaved(text); });
    const Status settings = m_mixer.settings.open(SettingsFile::standardFile());
    const Status restored = m_session.open(sessionFile(folder));
    m_window.show();
    for (const Status& status : {settings, restored}) {
        if (!status.isOk())
            report(status.error());
    }
    m_session.restoreWindows(m_window);
    m_mixer.mixerModel.history().clear();
    connectAudio();
}

QString MixerProgram::sessionFile(const QString& folder)
{
    return folder + QLatin1String("/data/session.json");
}

void MixerProgram::connectAudio()
{
    QObject::connect(&m_audio, &AudioSession::failed, &m_window,
                     [this](const QString& text) { report(text); });
    QObject::connect(&m_audio, &AudioSession::starting, &m_publisher, &SettingsPublisher::publish);
    QObject::connect(&m_audio, &AudioSession::fileOpened, &m_window,
                     [this] { m_mixer.mixerModel.feed(m_window.selectedChannel(), false); });
    m_mixer.mixerModel.setTransport(&m_audio);
}

void MixerProgram::report(const QString& sentence)
{
    const QList<QMessageBox*> boxes = m_window.findChildren<QMessageBox*>();
    if (boxes.size() > 3)
        return;
    auto* box =
        new QMessageBox(QMessageBox::Warning, QString(), sentence, QMessageBox::Ok, &m_window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
}

bool MixerProgram::endsUnsaved(const QString& sentence)
{
    QMessageBox box(QMessageBox::Warning, QString(), sentence, QMessageBox::Cancel, &m_window);
    const auto* quit = box.addButton(QStringLiteral("Quit"), QMessageBox::DestructiveRole);
    box.exec();
    return box.clickedButton() == quit;
}
