// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EditorSession.h"

#include "equalizer/EqualizerParameters.h"
#include "host/window/ControlTips.h"
#include "host/window/FlatStep.h"
#include "host/window/HandleGuide.h"
#include "host/window/LetterFit.h"
#include "host/window/Mixer.h"
#include "host/window/WheelSpeed.h"
#include "hosting/StateFile.h"
#include "interfaces/IVaskEffectEditor2.h"

#include <QFileInfo>
#include <QLabel>

#include <public.sdk/source/common/memorystream.h>

using Steinberg::MemoryStream;

namespace {

const QString rangeName = QStringLiteral("GraphZoom"); // in editors' settings maps
const QString dialModeName = QStringLiteral("dialMode");
const QString sliderModeName = QStringLiteral("sliderMode");
constexpr int lastDialMode = 2;
constexpr int lastSliderMode = 3;

int modeIn(const SettingsFile& file, const QString& name, int otherwise, int last)
{
    const int mode = file.preference(name, otherwise).toInt();
    return mode >= 0 && mode <= last ? mode : otherwise;
}

} // namespace

void EditorSettings::takeModes(const SettingsFile& file)
{
    dialMode = modeIn(file, dialModeName, dialMode, lastDialMode);
    sliderMode = modeIn(file, sliderModeName, sliderMode, lastSliderMode);
}

void EditorSettings::keepModes(SettingsFile* file) const
{
    file->setPreference(dialModeName, dialMode);
    file->setPreference(sliderModeName, sliderMode);
}

std::unique_ptr<EditorSession> EditorSession::open(Mixer& mixer, const EditorSettings& settings,
                                                   QWidget* stage)
{
    IVaskEffectEditor2* editor =
        mixer.library.create(stage, static_cast<unsigned short>(settings.channel), &mixer.model);
    if (!editor)
        return nullptr;
    return std::unique_ptr<EditorSession>(new EditorSession(mixer, settings, stage, editor));
}

EditorSession::EditorSession(Mixer& mixer, const EditorSettings& settings, QWidget* stage,
                             IVaskEffectEditor2* editor)
    : m_mixer(mixer)
    , m_settings(settings)
    , m_stage(stage)
    , m_guard(editor)
    , m_editor(editor)
{
    m_editor->setMemAPI(&mixer.memory);
    applyChannels();
    m_editor->setOn(true);
    setSampleRate(settings.sampleRate);
    setDialMode(settings.dialMode);
    setSliderMode(settings.sliderMode);
    setScale(settings.scale);
    restoreMap();
    guideUser();
}

// The helpers belong to what they watch.
void EditorSession::guideUser()
{
    new WheelSpeed(m_editor);
    new ControlTips(m_stage, m_editor);
    for (QWidget* part : m_editor->findChildren<QWidget*>()) {
        if (part->inherits("ZoltaEqualizerGraph"))
            new HandleGuide(m_mixer.memory, m_settings.channel, part);
        else if (part->objectName() == QLatin1String("m_pFlatButton"))
            new FlatStep(m_mixer.mixerModel.history(), part);
        else if (auto* label = qobject_cast<QLabel*>(part))
            fitLetters(label);
    }
}

EditorSession::~EditorSession()
{
    if (m_guard) {
        saveMap();
        m_editor->setMemAPI(nullptr);
        delete m_editor;
    }
    m_mixer.meters.hide(this);
}

void EditorSession::setStereo(bool stereo)
{
    m_settings.stereo = stereo;
    applyChannels();
}

void EditorSession::setScale(double scale)
{
    m_settings.scale = scale;
    m_editor->setScale(scale);
    m_stage->setFixedSize(m_editor->size());
}

void EditorSession::setSampleRate(int hertz)
{
    m_settings.sampleRate = hertz;
    m_editor->setFs(hertz);
    showMeters();
}

void EditorSession::setDialMode(int mode)
{
    m_settings.dialMode = mode;
    m_editor->setDialEditMode(mode);
}

void EditorSession::setSliderMode(int mode)
{
    m_settings.sliderMode = mode;
    m_editor->setSliderEditMode(mode);
}

int EditorSession::graphRange() const
{
    bool understood = false;
    const int number = m_editor->getEditorSettings().value(rangeName).toInt(&understood);
    const bool known = understood && number >= 0 && number < int(graphRanges.size());
    return known ? number : defaultGraphRange;
}

void EditorSession::setGraphRange(int number)
{
    SettingsFile::Map map = m_editor->getEditorSettings();
    map[rangeName] = number;
    m_editor->setEditorSettings(map);
}

Status EditorSession::loadState(const QString& file)
{
    Result<QByteArray> state = StateFile(file, m_editor->uid()).read();
    if (!state.isOk())
        return state.status();
    const HostMemory::Values before = m_mixer.memory.values(m_settings.channel);
    const EditHistory::Step step(m_mixer.mixerModel.history(),
                                 tr("Load %1").arg(QFileInfo(file).completeBaseName()));
    MemoryStream stream(state.value().data(), state.value().size());
    if (m_editor->getVstComponent()->setState(&stream) == Steinberg::kResultOk)
        return {};
    m_mixer.memory.write(m_settings.channel, before);
    return Error{tr("The plug-in did not accept the state in %1.").arg(file)};
}

Status EditorSession::saveState(const QString& file) const
{
    MemoryStream stream;
    const Steinberg::tresult result = m_editor->getVstComponent()->getState(&stream);
    if (result != Steinberg::kResultOk || stream.getSize() != stateSize)
        return Error{
            tr("The state file %1 cannot be written: the plug-in gave no state.").arg(file)};
    return StateFile(file, m_editor->uid()).write(QByteArray(stream.getData(), stateSize));
}

void EditorSession::saveMap()
{
    m_mixer.settings.keep(m_settings.channel, m_editor->getEditorSettings());
}

void EditorSession::takeFocus() { m_editor->setFocus(Qt::ActiveWindowFocusReason); }

QImage EditorSession::picture() const
{
    QImage image(m_editor->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    m_editor->render(&image);
    return image;
}

int EditorSession::partner() const
{
    return m_settings.stereo ? partnerOf(m_settings.channel) : -1;
}

void EditorSession::applyChannels()
{
    m_editor->setCh(m_settings.channel, partner());
    m_editor->setStereo(m_settings.stereo);
    showMeters();
}

void EditorSession::showMeters()
{
    m_mixer.meters.show(this, {m_settings.channel, partner(), m_settings.sampleRate});
}

void EditorSession::restoreMap()
{
    const SettingsFile::Map map = m_mixer.settings.map(m_settings.channel);
    if (!map.isEmpty())
        m_editor->setEditorSettings(map);
}
