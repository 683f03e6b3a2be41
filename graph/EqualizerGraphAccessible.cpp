// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/EqualizerGraphAccessible.h"

#include "graph/HandleModel.h"
#include "graph/HandleText.h"

#include <QCoreApplication>
#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace {

/// The handle of one band. It belongs to the graph's interface.
class HandleAccessible final : public QAccessibleInterface,
                               public QAccessibleValueInterface,
                               public QAccessibleActionInterface
{
public:
    HandleAccessible(QWidget* graph, HandleModel& handles, int band)
        : m_graph(graph)
        , m_handles(handles)
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
    EditTarget target() const { return targetOfBand(m_band); }
    const Band& band() const { return m_handles.bands()[m_band]; }
    bool isOperable() const { return isValid() && m_graph->isEnabled() && band().on; }
    /// The field that the handle's number is.
    EqualizerField field() const
    {
        return m_handles.bands().hasGain(m_band) ? EqualizerField::Gain : EqualizerField::Frequency;
    }

    QPointer<QWidget> m_graph; ///< null once the handles are gone
    HandleModel& m_handles;
    int m_band;
};

QString HandleAccessible::text(QAccessible::Text text) const
{
    if (text == QAccessible::Name)
        return HandleText::name(m_band);
    const bool isValue = text == QAccessible::Value || text == QAccessible::Description;
    if (isValue && isValid())
        return HandleText::value(m_handles.bands(), m_band);
    return {};
}

QRect HandleAccessible::rect() const
{
    if (!isValid())
        return {};
    const QRect local = m_handles.handleRect(target()).toAlignedRect();
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
    state.offscreen = m_handles.handleRect(target()).isEmpty();
    state.focusable = isOperable();
    state.focused = m_graph->hasFocus() && m_handles.focusedHandle() == target();
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
    return isValid() ? HandleText::number(m_handles.bands(), m_band) : QVariant();
}

void HandleAccessible::setCurrentValue(const QVariant& value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (isNumber && std::isfinite(number) && isOperable())
        m_handles.setHandle(target(), field(), number);
}

QVariant HandleAccessible::maximumValue() const
{
    return isValid() ? HandleModel::fieldMaximum(field()) : QVariant();
}

QVariant HandleAccessible::minimumValue() const
{
    return isValid() ? HandleModel::fieldMinimum(field()) : QVariant();
}

QVariant HandleAccessible::minimumStepSize() const
{
    if (!isValid())
        return {};
    const std::optional<double> size = m_handles.stepSize(target(), field());
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
        m_handles.focusHandle(target());
    else if (actionName == increaseAction())
        m_handles.stepHandle(target(), field(), 1);
    else if (actionName == decreaseAction())
        m_handles.stepHandle(target(), field(), -1);
}

} // namespace

EqualizerGraphAccessible::EqualizerGraphAccessible(QWidget* graph, HandleModel& handles)
    : QAccessibleWidget(graph, QAccessible::Grouping)
    , m_handles(handles)
{}

EqualizerGraphAccessible::~EqualizerGraphAccessible()
{
    for (const QAccessible::Id handle : m_ids)
        if (handle)
            QAccessible::deleteAccessibleInterface(handle);
}

QString EqualizerGraphAccessible::text(QAccessible::Text text) const
{
    if (text == QAccessible::Name && widget()->accessibleName().isEmpty())
        return QCoreApplication::translate("ZoltaEqualizerGraph", "Equalizer curve");
    return QAccessibleWidget::text(text);
}

QAccessible::State EqualizerGraphAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    if (m_handles.focusedHandle() != EditTargetNone)
        state.focused = false;
    return state;
}

int EqualizerGraphAccessible::childCount() const { return EqualizerBands::Count; }

QAccessibleInterface* EqualizerGraphAccessible::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    QAccessible::Id& handle = m_ids[static_cast<std::size_t>(index)];
    if (!handle)
        handle = QAccessible::registerAccessibleInterface(
            new HandleAccessible(widget(), m_handles, index));
    return QAccessible::accessibleInterface(handle);
}

int EqualizerGraphAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    const auto known = [child](QAccessible::Id handle) {
        return handle && QAccessible::accessibleInterface(handle) == child;
    };
    const auto found = std::find_if(m_ids.begin(), m_ids.end(), known);
    return child && found != m_ids.end() ? static_cast<int>(found - m_ids.begin()) : -1;
}

QAccessibleInterface* EqualizerGraphAccessible::childAt(int x, int y) const
{
    const QPoint point = widget()->mapFromGlobal(QPoint(x, y));
    QAccessibleInterface* handle = child(bandOf(m_handles.getPointTarget(point)));
    return handle && handle->rect().contains(x, y) ? handle : nullptr;
}

QAccessibleInterface* EqualizerGraphAccessible::focusChild() const
{
    return widget()->hasFocus() ? child(bandOf(m_handles.focusedHandle())) : nullptr;
}
