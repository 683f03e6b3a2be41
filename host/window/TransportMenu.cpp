// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/TransportMenu.h"

#include "host/audio/AudioSession.h"
#include "host/model/MixerModel.h"
#include "host/window/PlayKey.h"
#include "host/window/Retranslator.h"

#include <QCoreApplication>
#include <QMenu>

namespace {

QString text(const char* english) { return QCoreApplication::translate("TransportMenu", english); }

void follow(QMenu* menu, const QList<QAction*>& actions, QAction* loop, const MixerModel& model)
{
    const auto show = [actions, loop, &model] {
        const AudioSession* transport = model.transport();
        for (QAction* action : actions)
            action->setEnabled(transport);
        loop->setChecked(transport && transport->isLooping());
    };
    const auto listen = [menu, show, &model] {
        if (const AudioSession* transport = model.transport())
            QObject::connect(transport, &AudioSession::changed, menu, show);
        show();
    };
    QObject::connect(&model, &MixerModel::transportChanged, menu, listen);
    listen();
}

} // namespace

void fillTransportMenu(QMenu* menu, MixerModel& mixerModel, Retranslator& texts)
{
    const auto add = [&](const char* english, const QKeySequence& keys, auto act) {
        return texts.action(
            menu, [english] { return text(english); }, keys, menu,
            [&mixerModel, act] {
                if (AudioSession* transport = mixerModel.transport())
                    act(*transport);
            });
    };
    QAction* play =
        add(QT_TRANSLATE_NOOP("TransportMenu", "&Play or Stop"), QKeySequence(Qt::Key_Space),
            [](AudioSession& transport) { transport.playOrStop(); });
    QAction* start = add(QT_TRANSLATE_NOOP("TransportMenu", "&Return to Start"),
                         QKeySequence(Qt::CTRL | Qt::Key_Home),
                         [](AudioSession& transport) { transport.setPosition(0.0); });
    QAction* loop = add(
        QT_TRANSLATE_NOOP("TransportMenu", "&Loop"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_L),
        [](AudioSession& transport) { transport.setLooping(!transport.isLooping()); });
    loop->setCheckable(true);
    new PlayKey(menu);
    follow(menu, {play, start, loop}, loop, mixerModel);
}
