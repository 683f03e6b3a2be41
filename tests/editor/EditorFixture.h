// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/AbstractController.h"
#include "controls/KnobController.h"
#include "controls/PushButtonController.h"
#include "controls/TextEditController.h"
#include "editor/ZoltaEditor.h"
#include "graph/ZoltaEqualizerGraph.h"
#include "tests/support/TestHost.h"
#include "widgets/SvgLabel.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimerEvent>
#include <QtTest>

#include <array>
#include <memory>

using CommonController_MemAPI::AbstractController;
using CommonController_MemAPI::KnobController;
using CommonController_MemAPI::PushButtonController;
using CommonController_MemAPI::TextEditController;

/// The parameters and what their controls are called: "m_p" + stem + "Knob", "TextEdit" and "Area",
/// or the button itself.
struct ParameterControls
{
    int number;
    const char* stem;
    enum Kind { KnobOnly, KnobAndText, Button } kind;
};

inline constexpr std::array<ParameterControls, 27> AllParameters = {{
    {1, "LowType", ParameterControls::KnobOnly},
    {2, "LowFrequency", ParameterControls::KnobAndText},
    {3, "LowGain", ParameterControls::KnobAndText},
    {4, "LowButton", ParameterControls::Button},
    {5, "Middle1Quality", ParameterControls::KnobAndText},
    {6, "Middle1Frequency", ParameterControls::KnobAndText},
    {7, "Middle1Gain", ParameterControls::KnobAndText},
    {8, "Middle1Button", ParameterControls::Button},
    {9, "Middle2Quality", ParameterControls::KnobAndText},
    {10, "Middle2Frequency", ParameterControls::KnobAndText},
    {11, "Middle2Gain", ParameterControls::KnobAndText},
    {12, "Middle2Button", ParameterControls::Button},
    {13, "Middle3Quality", ParameterControls::KnobAndText},
    {14, "Middle3Frequency", ParameterControls::KnobAndText},
    {15, "Middle3Gain", ParameterControls::KnobAndText},
    {16, "Middle3Button", ParameterControls::Button},
    {17, "Middle4Quality", ParameterControls::KnobAndText},
    {18, "Middle4Frequency", ParameterControls::KnobAndText},
    {19, "Middle4Gain", ParameterControls::KnobAndText},
    {20, "Middle4Button", ParameterControls::Button},
    {21, "HighType", ParameterControls::KnobOnly},
    {22, "HighFrequency", ParameterControls::KnobAndText},
    {23, "HighGain", ParameterControls::KnobAndText},
    {24, "HighButton", ParameterControls::Button},
    {25, "Input", ParameterControls::KnobAndText},
    {26, "Output", ParameterControls::KnobAndText},
    {27, "DriveCleanSwitch", ParameterControls::Button},
}};

inline AbstractController* controller(QWidget* widget)
{
    return dynamic_cast<AbstractController*>(widget);
}

using Timers = QList<QAbstractEventDispatcher::TimerInfo>;

inline Timers timersOf(QObject* object)
{
    return QAbstractEventDispatcher::instance()->registeredTimers(object);
}

/// The time of a timer is over.
inline void fire(QObject* object, int timerId)
{
    QTimerEvent event(timerId);
    QCoreApplication::sendEvent(object, &event);
}

/// An editor as a host makes it, with the host. Nothing is bound yet.
class EditorFixture
{
public:
    EditorFixture()
    {
        editor = std::make_unique<ZoltaEditor>();
        editor->setModelInfo(host.model());
        editor->initialize();
    }

    void bind() { editor->setMemAPI(host.memory()); }
    void bind(int ch, int ch2)
    {
        bind();
        editor->setCh(ch, ch2);
    }

    QWidget* find(const QString& name) const
    {
        auto* widget = editor->findChild<QWidget*>(name);
        if (!widget)
            qFatal("no widget %s", qPrintable(name));
        return widget;
    }
    template <class Widget = QWidget> Widget* widget(const char* name) const
    {
        auto* cast = qobject_cast<Widget*>(find(QLatin1String("m_p") + QLatin1String(name)));
        if (!cast)
            qFatal("%s is of another class", name);
        return cast;
    }
    bool isShown(const char* name) const { return !widget(name)->isHidden(); }
    /// A digit for each widget: 1 shown, 0 hidden.
    QByteArray shown(std::initializer_list<QByteArray> names) const
    {
        QByteArray digits;
        for (const QByteArray& name : names)
            digits += isShown(name) ? '1' : '0';
        return digits;
    }
    QString svg(const char* name) const { return widget<SvgLabel>(name)->svg(); }
    AbstractController* control(const char* name) const { return controller(widget(name)); }
    ZoltaEqualizerGraph* graph() const { return editor->findChild<ZoltaEqualizerGraph*>(); }

    QList<QWidget*> controls(const ParameterControls& parameter) const
    {
        const QByteArray stem = parameter.stem;
        if (parameter.kind == ParameterControls::Button)
            return {widget(stem)};
        QList<QWidget*> list = {widget(stem + "Knob")};
        if (parameter.kind == ParameterControls::KnobAndText)
            list.append(widget(stem + "TextEdit"));
        return list;
    }
    QWidget* area(const ParameterControls& parameter) const
    {
        const QByteArray stem = parameter.stem;
        return widget(parameter.kind == ParameterControls::Button ? stem : stem + "Area");
    }

    /// Presses the flat button, and lets the time go by for which it is to be held.
    void pressFlat() const { QTest::mousePress(widget("FlatButton"), Qt::LeftButton); }
    void holdFlat() const { fire(editor.get(), timersOf(editor.get()).first().timerId); }

    TestHost host;
    std::unique_ptr<ZoltaEditor> editor;
};

/// The numbers of the parameters that were written, in order.
inline QList<int> numbers(const std::vector<TestHost::Write>& writes)
{
    QList<int> list;
    for (const TestHost::Write& write : writes)
        list.append(write.name.mid(int(qstrlen("fx_rackfx_prm_"))).toInt());
    return list;
}
