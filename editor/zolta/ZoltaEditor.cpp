// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/zolta/ZoltaEditor.h"

#include "graph/ZoltaEqualizerGraph.h"
#include "plugin/component/ZoltaComponent.h"
#include "plugin/interfaces/IMemAPI.h"
#include "plugin/interfaces/IMeterNotifier.h"

namespace {

constexpr QSize EditorSize(977, 559);
constexpr QRect EqualizerGraphRect(94, 22, 679, 192);
const QString GraphZoomKey = QStringLiteral("GraphZoom");

} // namespace

ZoltaEditor::ZoltaEditor(QWidget* parent)
    : EffectEditor(parent)
    , m_graph(new ZoltaEqualizerGraph(this))
    , m_component(new ZoltaComponent)
    , m_uid(0x56535464, 0x78704265, 0x7175616C, 0x697A6572)
{
    if (objectName().isEmpty())
        setObjectName(QStringLiteral("ZoltaEditor"));
    resize(EditorSize);
    QPalette black = palette();
    black.setColor(QPalette::Window, Qt::black);
    setPalette(black);
    // Without a role of its own the editor would take over its parent's.
    setBackgroundRole(QPalette::Window);
    setAutoFillBackground(true);
    setFocusPolicy(Qt::ClickFocus);
    setFont(QFont(QStringLiteral("M+ 1c medium")));
    m_graph->setGeometry(EqualizerGraphRect);
}

ZoltaEditor::~ZoltaEditor()
{
    setMeterObserver(false);
    delete m_graph;
    delete m_component;
}

Steinberg::FUID& ZoltaEditor::uid() { return m_uid; }

void ZoltaEditor::loadUids(std::vector<Steinberg::FUID>& uids) { uids.push_back(m_uid); }

Steinberg::Vst::IComponent* ZoltaEditor::getVstComponent() const { return m_component; }

void ZoltaEditor::setModelInfo(IModelInfo* modelInfo)
{
    EffectEditor::setModelInfo(modelInfo);
    m_component->setModelInfo(modelInfo);
}

void ZoltaEditor::setMemAPI(IMemAPI* memAPI)
{
    if (memAPI == m_memAPI)
        return;
    setMeterObserver(false);
    m_memAPI = memAPI;
    if (memAPI) {
        m_component->setMemAPI(memAPI);
        setMeterObserver(true);
    }
    m_graph->setMemAPI(memAPI);
}

void ZoltaEditor::setCh(int ch, int ch2)
{
    const int second = ch2 == ch && ch2 >= 0 ? ch + 1 : ch2;
    if (ch == m_primaryCh && second == m_secondaryCh)
        return;
    m_primaryCh = ch;
    m_secondaryCh = second;
    m_component->setCh(ch);
    m_graph->setCh(ch);
}

void ZoltaEditor::setFs(int fs) { m_graph->setFs(fs); }

QMap<QString, QVariant> ZoltaEditor::getEditorSettings() const
{
    return {{GraphZoomKey, m_graph->zoom()}};
}

void ZoltaEditor::setEditorSettings(const QMap<QString, QVariant>& settings)
{
    const QVariant zoom = settings.value(GraphZoomKey);
    if (!zoom.isNull())
        m_graph->setZoom(zoom.toInt());
}

int ZoltaEditor::Update(unsigned short, unsigned short, int, const char*) { return 0; }

int ZoltaEditor::UpdateProperty(unsigned short, unsigned short, int, int, int, bool, const char*)
{
    return 0;
}

void ZoltaEditor::notifyMeterLvlUpdated(unsigned int*, unsigned int) {}

void ZoltaEditor::notifyMeterDbUpdated(unsigned int*, unsigned int) {}

void ZoltaEditor::setMeterObserver(bool registered)
{
    IMeterNotifier* notifier = nullptr;
    if (!m_memAPI || m_memAPI->queryMeterNotifier(&notifier) < 0 || !notifier)
        return;
    if (registered)
        notifier->addMeterObserver(this);
    else
        notifier->removeMeterObserver(this);
}

#include "moc_ZoltaEditor.cpp"
