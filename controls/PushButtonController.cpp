// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PushButtonController.h"

#include "controls/ControlAccessible.h"
#include "controls/ModifierReport.h"

#include <QApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace CommonController_MemAPI {

namespace {

constexpr PushButtonController::CheckTrigger Edges = {PushButtonController::Press |
                                                      PushButtonController::Release};
constexpr PushButtonController::CheckTrigger Directions = {PushButtonController::On |
                                                           PushButtonController::Off};

double scaledMargin(int margin, double scale) { return std::trunc(margin * scale + 0.5); }

/// How much of the \a space around an image lies before it.
double aligned(Qt::Alignment alignment, Qt::AlignmentFlag center, Qt::AlignmentFlag far,
               double space)
{
    if (alignment.testFlag(center))
        return space * 0.5;
    return alignment.testFlag(far) ? space : 0.0;
}

class PushButtonAccessible final : public ControlAccessible
{
public:
    explicit PushButtonAccessible(PushButtonController* button)
        : ControlAccessible(button, button, QAccessible::Button)
        , m_button(button)
    {}

    QAccessible::Role role() const override
    {
        return m_button->isCheckable() ? QAccessible::CheckBox : QAccessible::Button;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = ControlAccessible::state();
        state.checkable = m_button->isCheckable();
        state.checked = m_button->isChecked();
        state.pressed = m_button->isDown();
        return state;
    }

    QString text(QAccessible::Text text) const override
    {
        const bool isShown = m_button->accessibleName().isEmpty() && !m_button->text().isEmpty();
        return text == QAccessible::Name && isShown ? m_button->text()
                                                    : ControlAccessible::text(text);
    }

    /// Only a switch keeps a value; a momentary button would be left held.
    void setCurrentValue(const QVariant& value) override
    {
        if (m_button->isCheckable())
            ControlAccessible::setCurrentValue(value);
    }

    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (isOperable() && m_button->isCheckable())
            names << toggleAction();
        if (isOperable())
            names << pressAction();
        return names;
    }

    void doAction(const QString& actionName) override
    {
        const bool isToggle = actionName == toggleAction() && m_button->isCheckable();
        if (isToggle || actionName == pressAction())
            m_button->click();
        else
            QAccessibleWidget::doAction(actionName);
    }

private:
    PushButtonController* m_button;
};

} // namespace

PushButtonController::PushButtonController(QWidget* parent)
    : QPushButton(parent)
{
    registerAccessible(staticMetaObject, [](QWidget* button) -> QAccessibleInterface* {
        return new PushButtonAccessible(static_cast<PushButtonController*>(button));
    });
    setFocusPolicy(Qt::NoFocus);
    setMaximumValue(1);
    for (const SvgImage& image : m_images)
        connect(&image, &SvgImage::repaintNeeded, this, qOverload<>(&QWidget::update));
    connect(this, &QAbstractButton::pressed, this, &PushButtonController::buttonPress);
    connect(this, &QAbstractButton::released, this, &PushButtonController::buttonRelease);
    connect(this, &QAbstractButton::toggled, this, &PushButtonController::buttonToggle);
    connect(qApp, &QApplication::focusChanged, this, &PushButtonController::focusChange);
}

PushButtonController::~PushButtonController()
{
    blockSignals(true);
    closeEdits();
    if (m_held)
        writeState(false);
    unbind();
}

void PushButtonController::setScale(double scale)
{
    if (storeScale(scale))
        update();
}

void PushButtonController::setMemAPIValue(IMemAPI* memAPI, unsigned short parameter,
                                          unsigned short ch, unsigned short index)
{
    const QPointer<QWidget> self(this);
    if (!isBoundTo(memAPI, parameter, ch, index))
        letGo();
    if (self)
        bind(memAPI, parameter, ch, index);
}

void PushButtonController::setShadowBlur(double radius)
{
    store(m_shadowBlur, std::max(radius, 0.0));
}

void PushButtonController::setButtonDisableOpacity(double opacity)
{
    store(m_buttonDisableOpacity, std::clamp(opacity, 0.0, 1.0));
}

void PushButtonController::setOpacity(double opacity)
{
    store(m_opacity, std::clamp(opacity, 0.0, 1.0));
}

void PushButtonController::setCheckTrigger(CheckTrigger trigger)
{
    const CheckTrigger old = m_checkTrigger;
    trigger &= Edges | Directions;
    if (trigger.testFlag(Press) && !old.testFlag(Press))
        trigger.setFlag(Release, false);
    if (trigger.testFlag(Release) && !old.testFlag(Release))
        trigger.setFlag(Press, false);
    if (!trigger.testAnyFlags(Edges))
        trigger.setFlag(old.testFlag(Press) ? Release : Press);
    if (!trigger.testAnyFlags(Directions))
        trigger.setFlag(old.testFlag(On) ? Off : On);
    m_checkTrigger = trigger;
}

void PushButtonController::setOn()
{
    if (isEnabled() && isCheckable() && !isChecked())
        switchTo(true);
}

void PushButtonController::setOff()
{
    if (isEnabled() && isCheckable() && isChecked())
        switchTo(false);
}

void PushButtonController::valueChanged()
{
    const QPointer<QWidget> self(this);
    if (isCheckable() && isChecked() != (value() != minimumValue()))
        setCheckedSilently(!isChecked());
    if (self)
        update();
}

void PushButtonController::valueChangedRequest()
{
    const QPointer<QWidget> self(this);
    valueChanged();
    if (!self)
        return;
    const int now = value();
    if (isVisible())
        announceValue(this, now);
    Q_EMIT valueChanged(now);
}

void PushButtonController::buttonPress()
{
    if (isCheckable())
        return;
    m_held = true;
    writeState(true);
}

void PushButtonController::buttonRelease()
{
    if (isCheckable() && !m_held)
        return;
    m_held = false;
    writeState(false);
}

void PushButtonController::buttonToggle(bool checked)
{
    if (!m_syncing && !m_checkTrigger.testFlag(Press))
        writeState(checked);
}

void PushButtonController::focusChange()
{
    if (focusPolicy() == Qt::NoFocus)
        letGo();
}

bool PushButtonController::hitButton(const QPoint& position) const
{
    return rect().contains(position);
}

void PushButtonController::nextCheckState()
{
    // Written after the toggle, not inside it: QAbstractButton survives no deletion in there.
    if (isCheckable() && maySwitch())
        switchTo(!isChecked());
}

void PushButtonController::mousePressEvent(QMouseEvent* event)
{
    m_modifiers = event->modifiers();
    if (event->buttons().testFlag(Qt::RightButton)) {
        QWidget::mousePressEvent(event);
        return;
    }
    const QPointer<QWidget> self(this);
    m_letGo = false;
    setInside(hitButton(event->position().toPoint()));
    if (self)
        QPushButton::mousePressEvent(event);
    if (self && event->button() == Qt::LeftButton && isEnabled() && isCheckable() &&
        m_checkTrigger.testFlag(Press) && maySwitch())
        switchTo(!isChecked());
}

void PushButtonController::mouseMoveEvent(QMouseEvent* event)
{
    const QPointer<QWidget> self(this);
    setInside(hitButton(event->position().toPoint()));
    if (self && !m_letGo)
        QPushButton::mouseMoveEvent(event);
}

void PushButtonController::mouseReleaseEvent(QMouseEvent* event)
{
    m_modifiers = event->modifiers();
    const bool isSwitch = event->button() == Qt::LeftButton && isEnabled() && isCheckable();
    if (event->button() == Qt::RightButton)
        QWidget::mouseReleaseEvent(event);
    else if (isSwitch && !(m_checkTrigger.testFlag(Release) && maySwitch()))
        endClick(event);
    else
        QPushButton::mouseReleaseEvent(event);
}

void PushButtonController::enterEvent(QEnterEvent* event)
{
    QPushButton::enterEvent(event);
    m_hovered = true;
    update();
    setInside(true);
}

void PushButtonController::leaveEvent(QEvent* event)
{
    QPushButton::leaveEvent(event);
    m_hovered = false;
    update();
    setInside(false);
}

void PushButtonController::changeEvent(QEvent* event)
{
    const QPointer<QWidget> self(this);
    QPushButton::changeEvent(event);
    if (self && event->type() == QEvent::EnabledChange)
        update();
}

void PushButtonController::hideEvent(QHideEvent* event)
{
    const QPointer<QWidget> self(this);
    letGo();
    if (self)
        QPushButton::hideEvent(event);
}

void PushButtonController::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_opacity);
    const bool pushed = isDown() && m_inside;
    drawShadow(painter, pushed);
    drawButton(painter, pushed);
    drawIcon(painter);
    drawText(painter);
}

void PushButtonController::writeState(bool on)
{
    const QPointer<QWidget> self(this);
    const ModifierReport report(*this, m_modifiers);
    openEdit();
    setValue(on ? maximumValue() : minimumValue());
    if (!self)
        return;
    closeEdit();
    if (report.isDue())
        Q_EMIT modifiersChange(this, m_modifiers);
}

QString PushButtonController::shownText() const { return text(); }

void PushButtonController::letGo()
{
    if (!isDown() && !m_held)
        return;
    m_letGo = true;
    setDown(false);
    buttonRelease();
}

void PushButtonController::setSvg(Layer layer, const QString& path)
{
    if (path != svg(layer))
        m_images[layer].load(path);
}

bool PushButtonController::maySwitch() const
{
    return m_checkTrigger.testFlag(isChecked() ? Off : On);
}

void PushButtonController::setCheckedSilently(bool checked)
{
    const QPointer<QWidget> self(this);
    m_syncing = true;
    setChecked(checked);
    if (self)
        m_syncing = false;
}

void PushButtonController::switchTo(bool on)
{
    const QPointer<QWidget> self(this);
    setCheckedSilently(on);
    if (self && isChecked() == on)
        writeState(on);
}

void PushButtonController::endClick(QMouseEvent* event)
{
    const QPointer<QWidget> self(this);
    setDown(false);
    QWidget::mouseReleaseEvent(event);
    if (self)
        Q_EMIT clicked(isChecked());
    if (self)
        Q_EMIT released();
}

void PushButtonController::setInside(bool inside)
{
    if (inside == m_inside)
        return;
    m_inside = inside;
    update();
    Q_EMIT sideChanged();
}

SvgImage& PushButtonController::loadedOr(Layer preferred, bool applies, Layer otherwise)
{
    return m_images[applies && m_images[preferred].isValid() ? preferred : otherwise];
}

QRectF PushButtonController::imageRect(const SvgImage& image) const
{
    const QSizeF size = QSizeF(image.defaultSize()) * scale();
    const Qt::Alignment alignment = QStyle::visualAlignment(layoutDirection(), m_svgAlignment);
    const double x = aligned(alignment, Qt::AlignHCenter, Qt::AlignRight, width() - size.width());
    const double y =
        aligned(alignment, Qt::AlignVCenter, Qt::AlignBottom, height() - size.height());
    return {QPointF(x, y), size};
}

void PushButtonController::drawShadow(QPainter& painter, bool pushed)
{
    SvgImage& image = m_images[pushed ? PushShadowLayer : ShadowLayer];
    if (image.isValid())
        image.drawBlurred(painter, imageRect(image), m_shadowBlur * scale(), rect());
}

void PushButtonController::drawButton(QPainter& painter, bool pushed)
{
    const bool on = isCheckable() && isChecked();
    SvgImage& image = pushed ? loadedOr(OnPushButtonLayer, on, PushButtonLayer)
                             : loadedOr(OnButtonLayer, on, ButtonLayer);
    if (!image.isValid())
        return;
    if (!isEnabled() && m_buttonDisableOpacity < 1.0)
        image.drawTranslucent(painter, imageRect(image), m_buttonDisableOpacity, rect());
    else
        image.draw(painter, imageRect(image));
}

void PushButtonController::drawIcon(QPainter& painter)
{
    SvgImage& image = loadedOr(OnIconLayer, isOn(), IconLayer);
    if (image.isValid())
        image.draw(painter, imageRect(image));
}

void PushButtonController::drawText(QPainter& painter) const
{
    const QRectF textRect = QRectF(rect()).adjusted(
        scaledMargin(m_textLeftMargin, scale()), scaledMargin(m_textTopMargin, scale()),
        -scaledMargin(m_textRightMargin, scale()), -scaledMargin(m_textBottomMargin, scale()));
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(textRect, static_cast<int>(m_textAlignment), shownText());
}

} // namespace CommonController_MemAPI

#include "moc_PushButtonController.cpp"
