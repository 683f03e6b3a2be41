// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/ChannelCountMenu.h"

#include "host/model/MixerModel.h"
#include "host/window/Retranslator.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QMenu>

void addChannelCountMenu(QMenu* parent, MixerModel& mixerModel, Retranslator& texts)
{
    QMenu* menu = texts.menu(parent, [] {
        return QCoreApplication::translate("ChannelCountMenu", "&Number of Channels");
    });
    auto* group = new QActionGroup(menu);
    for (int count = minChannelCount; count <= maxChannelCount; count += 2) {
        QAction* action = group->addAction(menu->addAction(QString::number(count)));
        action->setCheckable(true);
        action->setData(count);
        QObject::connect(action, &QAction::triggered, &mixerModel,
                         [&mixerModel, count] { mixerModel.chooseChannelCount(count); });
    }
    const auto follow = [group](int current) {
        for (QAction* action : group->actions())
            action->setChecked(action->data().toInt() == current);
    };
    QObject::connect(&mixerModel, &MixerModel::channelCountChanged, group, follow);
    follow(mixerModel.channelCount());
}
