// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EditorPresets.h"

#include "host/files/PresetValues.h"
#include "host/window/EditorSession.h"
#include "host/window/Mixer.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

QString stepText(const PresetName& preset)
{
    const QString name = EditorPresets::shownName(preset);
    return preset.isFactory ? name : EditorSession::tr("Load %1").arg(name);
}

} // namespace

EditorPresets::EditorPresets(Mixer& mixer, EditorSession& session, QObject* parent)
    : QObject(parent)
    , m_mixer(mixer)
    , m_session(session)
{
    const auto follow = [this](int changedChannel) {
        if (changedChannel == channel())
            Q_EMIT changed();
    };
    connect(&presets(), &ChannelPresets::changed, this, follow);
    connect(&mixer.mixerModel, &MixerModel::channelChanged, this, follow);
    if (!current())
        recognize();
}

QList<PresetName> EditorPresets::all() const
{
    QList<PresetName> names;
    for (const FactoryPreset& preset : factoryPresets())
        names << PresetName{QString::fromLatin1(preset.name), true};
    for (const QString& name : m_folder.names())
        names << PresetName{name, false};
    return names;
}

QString EditorPresets::shownName(const PresetName& preset)
{
    const FactoryPreset* factory = preset.isFactory ? findFactoryPreset(preset.name) : nullptr;
    return factory ? QCoreApplication::translate("FactoryPreset", factory->name) : preset.name;
}

std::optional<PresetName> EditorPresets::current() const { return presets().preset(channel()); }

bool EditorPresets::isModified() const { return presets().isModified(channel()); }

void EditorPresets::load(const PresetName& preset)
{
    report(apply(preset), tr("Loaded %1.").arg(shownName(preset)));
}

void EditorPresets::step(int by)
{
    const QList<PresetName> names = all();
    const qsizetype place = current() ? names.indexOf(*current()) : -1;
    const qsizetype from = place < 0 && by < 0 ? 0 : place;
    load(names[(from + by + names.size()) % names.size()]);
}

void EditorPresets::save(const QString& name)
{
    Status status = PresetFolder::checkName(name);
    if (status.isOk())
        status = m_folder.prepare();
    if (status.isOk())
        status = m_session.saveState(m_folder.fileOf(name));
    if (status.isOk())
        presets().adopt(channel(), {name, false}, m_mixer.memory.values(channel()));
    report(status, tr("Saved %1.").arg(name));
}

void EditorPresets::rename(const QString& from, const QString& to)
{
    const Status status = m_folder.rename(from, to);
    if (status.isOk())
        presets().rename({from, false}, to);
    report(status, tr("%1 is called %2 now.").arg(from, to));
}

void EditorPresets::remove(const QString& name)
{
    const Status status = m_folder.remove(name);
    if (status.isOk())
        presets().rename({name, false}, std::nullopt);
    report(status, tr("Deleted %1.").arg(name));
}

int EditorPresets::channel() const { return m_session.settings().channel; }

ChannelPresets& EditorPresets::presets() const { return m_mixer.mixerModel.presets(); }

Status EditorPresets::apply(const PresetName& preset)
{
    EditHistory::Step step(m_mixer.mixerModel.history(), stepText(preset));
    const FactoryPreset* factory = preset.isFactory ? findFactoryPreset(preset.name) : nullptr;
    if (factory) {
        m_mixer.memory.write(channel(), valuesOf(*factory));
    } else {
        const Status loaded = m_session.loadState(m_folder.fileOf(preset.name));
        if (!loaded.isOk())
            return loaded;
    }
    presets().choose(channel(), preset, &step);
    return {};
}

// The first one with the channel's values. What is as a new channel began with none.
void EditorPresets::recognize()
{
    const ChannelValues& values = m_mixer.memory.values(channel());
    if (values == defaultValues())
        return;
    const auto has = [&](const PresetName& preset) {
        return presetValues(preset, m_folder) == values;
    };
    const QList<PresetName> names = all();
    const auto found = std::find_if(names.begin(), names.end(), has);
    if (found != names.end())
        presets().adopt(channel(), *found, values);
}

// Whoever hears of an error may end all of this.
void EditorPresets::report(const Status& status, const QString& success)
{
    Q_EMIT finished(status.error(), status.isOk() ? success : QString());
}

#include "moc_EditorPresets.cpp"
