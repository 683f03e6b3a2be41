// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/AuditionModel.h"

void AuditionModel::watch(int channel)
{
    if (m_watchers[static_cast<std::size_t>(channel)]++ == 0)
        set(channel, Audition{true});
}

void AuditionModel::unwatch(int channel)
{
    if (--m_watchers[static_cast<std::size_t>(channel)] == 0)
        set(channel, Audition());
}

void AuditionModel::setBypassed(int channel, bool bypassed)
{
    Audition audition = of(channel);
    audition.bypassed = bypassed && audition.measured;
    set(channel, audition);
}

void AuditionModel::setBand(int channel, int band)
{
    Audition audition = of(channel);
    audition.band = audition.measured ? band : noBand;
    set(channel, audition);
}

void AuditionModel::set(int channel, const Audition& audition)
{
    if (of(channel) == audition)
        return;
    m_auditions[static_cast<std::size_t>(channel)] = audition;
    Q_EMIT changed(channel);
}

#include "moc_AuditionModel.cpp"
