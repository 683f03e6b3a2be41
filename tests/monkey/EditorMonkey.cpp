// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/monkey/EditorMonkey.h"

#include "interfaces/IVaskEffect.h"
#include "interfaces/IVaskEffectEditor2.h"
#include "tests/monkey/EventLog.h"
#include "tests/monkey/MonkeyRun.h"
#include "tests/support/TestStream.h"

#include <QCoreApplication>

#include <pluginterfaces/vst/ivstcomponent.h>

#include <limits>

namespace {

constexpr int maxDepth = 5; // of menus' loops within one another

} // namespace

EditorMonkey::EditorMonkey(const QString& library, std::uint32_t seed)
    : m_dice(seed)
    , m_loader(library)
    , m_effect(qobject_cast<IVaskEffect*>(m_loader.instance()))
{
    m_host.setDisturbance([this] { disturb(); });
    if (!m_effect)
        return;
    m_stage->resize(1000, 600);
    m_stage->show();
}

EditorMonkey::~EditorMonkey()
{
    m_host.setDisturbance({});
    deleteEditor();
}

QString EditorMonkey::act()
{
    if (!m_effect)
        return m_loader.errorString();
    if (!m_guard)
        makeEditor();
    const int choice = m_dice.between(1, 1000);
    if (MonkeyRun::depth() > maxDepth)
        m_user.letGo(m_stage.get());
    else if (choice <= 700)
        m_user.act(m_stage.get());
    else if (choice <= 800)
        hostEvent();
    else if (choice <= 870)
        configure();
    else if (choice <= 920)
        windowEvent();
    else if (choice <= 990)
        bind();
    else
        deleteEditor();
    return m_leaked ? QStringLiteral("a deleted editor left observers behind") : QString();
}

void EditorMonkey::makeEditor()
{
    EventLog::add("editor made");
    m_editor = static_cast<IVaskEffectEditor2*>(m_effect->create(
        m_stage.get(), static_cast<unsigned short>(m_dice.between(0, MonkeyHost::channels - 1)),
        &m_host));
    m_guard = m_editor;
    m_editor->setMemAPI(&m_host);
    m_editor->setCh(m_dice.between(0, 3), m_dice.between(-1, 3));
    m_editor->show();
}

void EditorMonkey::deleteEditor()
{
    EventLog::add("editor deleted");
    delete m_guard.data();
    m_leaked = m_leaked || m_host.observers() > 0;
}

// In the middle of a write.
void EditorMonkey::disturb()
{
    if (!m_guard)
        return;
    if (m_dice.oneIn(3))
        deleteEditor();
    else if (m_dice.oneIn(2))
        bind();
    else
        windowEvent();
}

void EditorMonkey::windowEvent()
{
    const int choice = m_dice.between(1, 8);
    EventLog::add("window", choice);
    if (choice <= 2)
        m_guard->setVisible(m_dice.oneIn(2));
    else if (choice == 3)
        m_guard->setEnabled(!m_dice.oneIn(3));
    else if (choice == 4)
        m_stage->setVisible(!m_dice.oneIn(3));
    else if (choice == 5)
        m_stage->activateWindow();
    else if (choice == 6)
        m_guard->grab(QRect(m_user.anyPoint(m_stage.get()), QSize(200, 150)));
    else if (m_dice.oneIn(2))
        QCoreApplication::installTranslator(&m_translator);
    else
        QCoreApplication::removeTranslator(&m_translator);
}

void EditorMonkey::configure()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const int choice = m_dice.between(1, 8);
    EventLog::add("configure", choice);
    switch (choice) {
    case 1:
        m_editor->setScale(m_dice.oneIn(5) ? m_dice.pick({nan, -1.0, 0.0, 1e-300, 4.0})
                                           : m_dice.between(5, 15) / 10.0);
        break;
    case 2:
        m_editor->setFs(m_dice.oneIn(3) ? m_dice.anyInt() : m_dice.pick({44100, 48000, 192000}));
        break;
    case 3:
        m_editor->setStereo(m_dice.oneIn(2));
        break;
    case 4:
        m_editor->setOn(m_dice.oneIn(2));
        break;
    case 5:
        m_editor->setDialEditMode(m_dice.between(-1, 4));
        break;
    case 6:
        m_editor->setSliderEditMode(m_dice.between(-1, 5));
        break;
    case 7:
        m_editor->setEditorSettings({{QStringLiteral("GraphZoom"), m_dice.anyInt()}});
        break;
    default:
        static_cast<void>(m_editor->getEditorSettings());
    }
}

void EditorMonkey::bind()
{
    const int choice = m_dice.between(1, 8);
    EventLog::add("bind", choice);
    if (choice == 1)
        m_editor->setMemAPI(nullptr);
    else if (choice <= 3)
        m_editor->setMemAPI(&m_host);
    else if (choice <= 5)
        m_editor->setCh(m_dice.between(-1, 5), m_dice.between(-1, 5));
    else if (choice == 6)
        m_editor->setModelInfo(m_dice.oneIn(3) ? nullptr : &m_host);
    else
        state();
}

void EditorMonkey::state()
{
    QByteArray bytes;
    for (int size = m_dice.pick({0, 3, 4, 60, 116, 200}); size > 0; --size)
        bytes.append(static_cast<char>(m_dice.between(0, 255)));
    TestStream stream(bytes, m_dice.oneIn(2) ? TestStream::End::Fails : TestStream::End::Lies);
    if (m_dice.oneIn(3))
        m_editor->getVstComponent()->getState(&stream);
    else
        m_editor->getVstComponent()->setState(&stream);
}

void EditorMonkey::hostEvent()
{
    const int choice = m_dice.between(1, 6);
    EventLog::add("host", choice);
    switch (choice) {
    case 1:
        m_host.changeAnyRange();
        break;
    case 2:
        m_host.notifyAnyProperty();
        break;
    case 3:
        m_host.setFailing(m_dice.oneIn(3) ? 10 : 0);
        break;
    case 4:
        m_host.pushMeters();
        break;
    default:
        m_host.writeAny();
    }
}
