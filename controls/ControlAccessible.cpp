// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ControlAccessible.h"

#include "controls/AbstractController.h"
#include "controls/WideInteger.h"

#include <QCoreApplication>
#include <QHash>
#include <QPointer>
#include <QWidget>

#include <cmath>

namespace CommonController_MemAPI {

namespace {

QAccessibleInterface* findAccessible(const QString& className, QObject* object);

struct Registry
{
    Registry() { QAccessible::installFactory(findAccessible); }
    ~Registry() { QAccessible::removeFactory(findAccessible); }

    struct Entry
    {
        const QMetaObject* control = nullptr;
        AccessibleMaker make = nullptr;
    };
    QHash<QString, Entry> entries;
};

Registry& registry()
{
    static Registry instance;
    return instance;
}

QAccessibleInterface* findAccessible(const QString& className, QObject* object)
{
    // Another library in the process may hold classes of the same names; those are its own to
    // answer for.
    const Registry::Entry entry = registry().entries.value(className);
    if (!entry.make || !entry.control->cast(object))
        return nullptr;
    return entry.make(static_cast<QWidget*>(object));
}

/// Names as Qt finds them for any widget.
class WidgetName final : public QAccessibleWidget
{
public:
    explicit WidgetName(QWidget* widget)
        : QAccessibleWidget(widget)
    {}
    ~WidgetName() override = default;
};

bool isGradual(QAccessible::Role role)
{
    return role == QAccessible::Dial || role == QAccessible::Slider ||
           role == QAccessible::SpinBox || role == QAccessible::ProgressBar;
}

} // namespace

ControlAccessible::ControlAccessible(QWidget* control, AbstractController* controller,
                                     QAccessible::Role role)
    : QAccessibleWidget(control, role)
    , m_controller(controller)
{}

void* ControlAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString ControlAccessible::text(QAccessible::Text text) const
{
    if (text == QAccessible::Name)
        return controlName(widget(), *m_controller);
    if (text == QAccessible::Value || (text == QAccessible::Description && isGradual(role())))
        return valueText();
    return QAccessibleWidget::text(text);
}

QString ControlAccessible::valueText() const
{
    const QString shown = m_controller->string();
    return shown.isEmpty() ? QString::number(m_controller->value())
                           : withUnit(shown, m_controller->unit());
}

QVariant ControlAccessible::currentValue() const { return m_controller->value(); }

void ControlAccessible::setCurrentValue(const QVariant& value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (isNumber && isOperable())
        m_controller->editValue(saturateToInt(truncateToInteger(std::round(number))));
}

QVariant ControlAccessible::maximumValue() const { return m_controller->maximumValue(); }

QVariant ControlAccessible::minimumValue() const { return m_controller->minimumValue(); }

QVariant ControlAccessible::minimumStepSize() const { return 1; }

QStringList ControlAccessible::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (isOperable())
        names << increaseAction() << decreaseAction();
    return names;
}

void ControlAccessible::doAction(const QString& actionName)
{
    if (actionName == increaseAction())
        changeBy(1);
    else if (actionName == decreaseAction())
        changeBy(-1);
    else
        QAccessibleWidget::doAction(actionName);
}

bool ControlAccessible::isOperable() const { return widget()->isEnabled(); }

void ControlAccessible::changeBy(int difference)
{
    if (isOperable())
        m_controller->editValue(saturateToInt(std::int64_t{m_controller->value()} + difference));
}

void registerAccessible(const QMetaObject& control, AccessibleMaker make)
{
    registry().entries.insert(QString::fromLatin1(control.className()), {&control, make});
}

QString controlName(QWidget* control, const AbstractController& controller)
{
    const QString name = WidgetName(control).text(QAccessible::Name);
    if (!name.isEmpty())
        return name;
    if (controller.isBound())
        return QCoreApplication::translate("CommonController_MemAPI", "Parameter %1")
            .arg(controller.parameter());
    return control->objectName();
}

QString withUnit(const QString& text, const QString& unit)
{
    const QChar last = text.isEmpty() ? QChar() : text.back();
    if (unit.isEmpty() || !(last.isDigit() || last == QLatin1Char('k')))
        return text;
    return last.isDigit() ? text + QLatin1Char(' ') + unit
                          : text.chopped(1) + QStringLiteral(" k") + unit;
}

void announceValue(QWidget* control, int value)
{
    if (!QAccessible::isActive())
        return;
    const QPointer<QWidget> alive(control);
    QAccessibleValueChangeEvent number(control, value);
    QAccessible::updateAccessibility(&number);
    if (!alive)
        return;
    QAccessibleEvent text(control, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&text);
}

} // namespace CommonController_MemAPI
