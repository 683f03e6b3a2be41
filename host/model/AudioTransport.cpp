// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/AudioTransport.h"

#include "host/audio/AudioSession.h"
#include "host/model/MixerModel.h"
#include "hosting/HostMemory.h"

#include <algorithm>

AudioTransport::AudioTransport(AudioSession& session, MixerModel& mixerModel,
                               std::function<int()> marked)
    : m_session(session)
    , m_mixerModel(mixerModel)
    , m_marked(std::move(marked))
{
    connect(&session, &AudioSession::fileChanged, this, &Transport::changed);
    connect(&session, &AudioSession::stateChanged, this, &Transport::changed);
    connect(&session, &AudioSession::failed, this, &Transport::changed);
}

Transport::State AudioTransport::state() const
{
    if (m_session.state() == AudioSession::State::Playing)
        return State::Playing;
    if (m_session.state() == AudioSession::State::Stalled)
        return State::Stalled;
    return m_session.errorText().isEmpty() ? State::Stopped : State::Error;
}

QString AudioTransport::error() const
{
    return state() == State::Playing ? QString() : m_session.errorText();
}

QString AudioTransport::file() const { return m_session.file(); }

void AudioTransport::open(const QString& file)
{
    if (m_session.device().live) {
        AudioDevice::Settings settings = m_session.device();
        settings.live = false;
        m_session.stop();
        m_session.setDevice(settings);
    }
    if (m_session.openFile(file))
        feed(m_marked(), false);
}

void AudioTransport::play() { m_session.play(); }

void AudioTransport::stop() { m_session.stop(); }

double AudioTransport::length() const { return std::max(m_session.duration(), 0.0); }

double AudioTransport::position() const { return m_session.position(); }

void AudioTransport::seek(double seconds) { m_session.setPosition(seconds); }

QStringList AudioTransport::devices() const
{
    QStringList names;
    for (const AudioDeviceInfo& each : outputs())
        names << each.name;
    return names;
}

int AudioTransport::device() const
{
    const AudioDeviceInfo* chosen =
        AudioDevices::choose(outputs(), m_session.device().device).device;
    return chosen ? static_cast<int>(chosen - outputs().data()) : -1;
}

void AudioTransport::chooseDevice(int index)
{
    if (index < 0 || index >= static_cast<int>(outputs().size()))
        return;
    const bool playing = m_session.state() != AudioSession::State::Stopped;
    m_session.stop();
    AudioDevice::Settings settings = m_session.device();
    settings.device = outputs()[static_cast<std::size_t>(index)].name;
    m_session.setDevice(settings);
    if (playing)
        m_session.play();
    Q_EMIT changed();
}

void AudioTransport::feed(int channel, bool live)
{
    HostMemory& memory = m_mixerModel.memory();
    const int first = live ? int{SourceInput1} : int{SourceFile};
    const int last = live ? SourceOff - 1 : int{SourceFile};
    for (int each = 0; each < channelCount; ++each) {
        const int source = memory.strip(m_mixerModel.leaderOf(each), StripParameter::Source);
        if (source >= first && source <= last)
            return;
    }
    const EditHistory::Pause pause(m_mixerModel.history());
    memory.setStrip(m_mixerModel.leaderOf(channel), StripParameter::Source, first);
}

const std::vector<AudioDeviceInfo>& AudioTransport::outputs() const
{
    if (!m_outputs) {
        m_outputs = AudioDevices::list();
        std::erase_if(*m_outputs, [](const AudioDeviceInfo& each) { return each.outputs == 0; });
    }
    return *m_outputs;
}

#include "moc_AudioTransport.cpp"
