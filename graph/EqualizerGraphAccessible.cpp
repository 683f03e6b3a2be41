// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/EqualizerGraphAccessible.h"

#include "controls/ControlAccessible.h"
#include "graph/HandleText.h"
#include "graph/ZoltaEqualizerGraph.h"

#include <QPointer>

#include <algorithm>
#include <cmath>

namespace {

using Graph = ZoltaEqualizerGraph;
using Field = ZoltaEqualizerGraph::Field;

/// The handle of one band. It belongs to the graph's interface.
class HandleAccessible final : public QAccessibleInterface,
                               public QAccessibleValueInterface,
                               public QAccessibleActionInterface
{
public:
    HandleAccessible(Graph* graph, int band)
        : m_graph(graph)
        , m_band(band)
    {}

    bool isValid() const override { return !m_graph.isNull(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return isValid() ? parent()->window() : nullptr; }

    QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_graph);
    }
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    QAccessible::Role role() const override { return QAccessible::Slider; }
    QString text(QAccessible::Text text) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    Graph::EditTarget target() const { return static_cast<Graph::EditTarget>(m_band + 1); }
    const Band& band() const { return m_graph->bands()[m_band]; }
    bool isOperable() const { return isValid() && m_graph->isEnabled() && band().on; }
    /// The field that the handle's number is.
    Field field() const
    {
        return m_graph->bands().hasGain(m_band) ? Field::Gain : Field::Frequency;
    }

    QPointer<Graph> m_graph;
    int m_band;
};

QString HandleAccessible::text(QAccessible::Text text) const
{
    if (text == QAccessible::Name)
        return HandleText::name(m_band);
    if (text == QAccessible::Value && isValid())
        return HandleText::value(m_graph->bands(), m_band);
    return {};
}

QRect HandleAccessible::rect() const
{
    if (!isValid())
        return {};
    const QRect local = m_graph->handleRect(target()).toAlignedRect();
    return local.isEmpty() ? QRect() : QRect(m_graph->mapToGlobal(local.topLeft()), local.size());
}

QAccessible::State HandleAccessible::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.disabled = !isOperable();
    state.invisible = !band().on || !m_graph->isVisible();
    state.offscreen = m_graph->handleRect(target()).isEmpty();
    state.focusable = isOperable();
    state.focused = m_graph->hasFocus() && m_graph->focusedHandle() == target();
    return state;
}

void* HandleAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

QVariant HandleAccessible::currentValue() const
{
    return isValid() ? EqualizerGraphAccessible::handleValue(m_graph->bands(), m_band) : QVariant();
}

void HandleAccessible::setCurrentValue(const QVariant& value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (isNumber && std::isfinite(number) && isOperable())
        m_graph->setHandle(target(), field(), number);
}

QVariant HandleAccessible::maximumValue() const
{
    return isValid() ? Graph::fieldMaximum(field()) : QVariant();
}

QVariant HandleAccessible::minimumValue() const
{
    return isValid() ? Graph::fieldMinimum(field()) : QVariant();
}

QVariant HandleAccessible::minimumStepSize() const
{
    if (!isValid())
        return {};
    const std::optional<double> size = m_graph->stepSize(target(), field());
    return size ? *size : QVariant();
}

QStringList HandleAccessible::actionNames() const
{
    if (!isOperable())
        return {};
    return {setFocusAction(), increaseAction(), decreaseAction()};
}

void HandleAccessible::doAction(const QString& actionName)
{
    if (!isOperable())
        return;
    if (actionName == setFocusAction())
        m_graph->focusHandle(target());
    else if (actionName == increaseAction())
        m_graph->stepHandle(target(), field(), 1);
    else if (actionName == decreaseAction())
        m_graph->stepHandle(target(), field(), -1);
}

} // namespace

void EqualizerGraphAccessible::install()
{
    CommonController_MemAPI::registerAccessible(
        Graph::staticMetaObject, [](QWidget* widget) -> QAccessibleInterface* {
            return new EqualizerGraphAccessible(static_cast<Graph*>(widget));
        });
}

double EqualizerGraphAccessible::handleValue(const EqualizerBands& bands, int band)
{
    return bands.hasGain(band) ? bands[band].gain : bands[band].frequency;
}

EqualizerGraphAccessible::EqualizerGraphAccessible(ZoltaEqualizerGraph* graph)
    : QAccessibleWidget(graph, QAccessible::Grouping)
{}

EqualizerGraphAccessible::~EqualizerGraphAccessible()
{
    for (const QAccessible::Id handle : m_handles)
        if (handle)
            QAccessible::deleteAccessibleInterface(handle);
}

QString EqualizerGraphAccessible::text(QAccessible::Text text) const
{
    if (text == QAccessible::Name && widget()->accessibleName().isEmpty())
        return ZoltaEqualizerGraph::tr("Equalizer curve");
    return QAccessibleWidget::text(text);
}

QAccessible::State EqualizerGraphAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    if (graph()->focusedHandle() != Graph::EditTargetNone)
        state.focused = false;
    return state;
}

int EqualizerGraphAccessible::childCount() const { return EqualizerBands::Count; }

QAccessibleInterface* EqualizerGraphAccessible::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    QAccessible::Id& handle = m_handles[static_cast<std::size_t>(index)];
    if (!handle)
        handle = QAccessible::registerAccessibleInterface(new HandleAccessible(graph(), index));
    return QAccessible::accessibleInterface(handle);
}

int EqualizerGraphAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    const auto known = [child](QAccessible::Id handle) {
        return handle && QAccessible::accessibleInterface(handle) == child;
    };
    const auto found = std::find_if(m_handles.begin(), m_handles.end(), known);
    return child && found != m_handles.end() ? static_cast<int>(found - m_handles.begin()) : -1;
}

QAccessibleInterface* EqualizerGraphAccessible::childAt(int x, int y) const
{
    const QPoint point = graph()->mapFromGlobal(QPoint(x, y));
    QAccessibleInterface* handle = child(graph()->getPointTarget(point) - 1);
    return handle && handle->rect().contains(x, y) ? handle : nullptr;
}

QAccessibleInterface* EqualizerGraphAccessible::focusChild() const
{
    return graph()->hasFocus() ? child(graph()->focusedHandle() - 1) : nullptr;
}

ZoltaEqualizerGraph* EqualizerGraphAccessible::graph() const
{
    return static_cast<ZoltaEqualizerGraph*>(widget());
}
