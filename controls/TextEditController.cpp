// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/TextEditController.h"

#include "controls/ControlAccessible.h"
#include "controls/ModifierReport.h"
#include "controls/UnitText.h"
#include "controls/WideInteger.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>
#include <utility>

namespace CommonController_MemAPI {

namespace TextEditControllerPrivate {

/// The inline editor. It keeps all keys to itself, so that nothing happens in the window while the
/// user types.
class LineEdit : public QLineEdit
{
public:
    explicit LineEdit(TextEditController* controller);

    /// While held, losing the focus does not finish the edit.
    bool isHeld() const { return m_held; }
    void setHeld(bool held) { m_held = held; }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    TextEditController* m_controller;
    bool m_held = false;
};

LineEdit::LineEdit(TextEditController* controller)
    : QLineEdit(controller)
    , m_controller(controller)
{
    hide();
    setFrame(false);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    connect(this, &QLineEdit::editingFinished, controller, &TextEditController::editFinish);
}

bool LineEdit::event(QEvent* event)
{
    constexpr auto commandKeys = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const bool handled = QLineEdit::event(event);
    // Taken here, a key is typed instead of triggering a shortcut of the window.
    if (event->type() == QEvent::ShortcutOverride &&
        !(static_cast<QKeyEvent*>(event)->modifiers() & commandKeys))
        event->accept();
    return handled;
}

void LineEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier)
        m_controller->editCancel();
    else
        QLineEdit::keyPressEvent(event);
    event->accept();
}

void LineEdit::keyReleaseEvent(QKeyEvent* event)
{
    QLineEdit::keyReleaseEvent(event);
    event->accept();
}

void LineEdit::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    // An editor that is zoomed sizes every widget of its tree by itself.
    if (isVisible() && geometry() != m_controller->rect())
        setGeometry(m_controller->rect());
}

void LineEdit::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (!m_held && !isHidden())
        Q_EMIT editingFinished();
}

void LineEdit::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setStyle(style());
    setHeld(true);
    connect(menu, &QMenu::aboutToHide, this, [this] { setHeld(false); });
    menu->popup(event->globalPos());
}

} // namespace TextEditControllerPrivate

namespace {

constexpr int ValueStep = 1;

int scaledMargin(int pixels, double scale)
{
    return saturateToInt(truncateToInteger(pixels * scale + 0.5));
}

QAccessibleInterface* makeAccessible(QWidget* control)
{
    return new ControlAccessible(control, static_cast<TextEditController*>(control),
                                 QAccessible::SpinBox);
}

} // namespace

TextEditController::TextEditController(QWidget* parent)
    : QWidget(parent)
    , m_lineEdit(new TextEditControllerPrivate::LineEdit(this))
{
    setFocusPolicy(Qt::ClickFocus);
    m_lineEdit->setMaxLength(m_textMaxLength);
    registerAccessible(staticMetaObject, makeAccessible);
}

TextEditController::~TextEditController()
{
    endDrag();
    editCancel();
    delete m_lineEdit;
    unbind();
}

void TextEditController::setScale(double scale)
{
    if (storeScale(scale))
        update();
}

void TextEditController::setMemAPIValue(IMemAPI* memAPI, unsigned short parameter,
                                        unsigned short ch, unsigned short index)
{
    if (isBoundTo(memAPI, parameter, ch, index))
        return;
    endDrag();
    editCancel();
    bind(memAPI, parameter, ch, index);
}

void TextEditController::setPostfix(const QString& postfix)
{
    if (postfix == m_postfix)
        return;
    m_postfix = postfix;
    valueChangedRequest();
}

void TextEditController::setExpandUnit(bool expand) { m_expandUnit = expand; }

void TextEditController::setAlignment(Qt::Alignment alignment)
{
    if (alignment == m_alignment)
        return;
    m_alignment = alignment;
    update();
}

void TextEditController::setTextTrim(bool trim)
{
    if (trim == m_textTrim)
        return;
    m_textTrim = trim;
    update();
}

void TextEditController::setTextLeftMargin(int pixels)
{
    if (pixels == m_textLeftMargin)
        return;
    m_textLeftMargin = pixels;
    update();
}

void TextEditController::setTextRightMargin(int pixels)
{
    if (pixels == m_textRightMargin)
        return;
    m_textRightMargin = pixels;
    update();
}

void TextEditController::setTextMaxLength(int characters)
{
    const int clamped = std::max(0, characters);
    if (clamped == m_textMaxLength)
        return;
    m_textMaxLength = clamped;
    m_lineEdit->setMaxLength(clamped);
}

QString TextEditController::editText() const
{
    QString text = hostText();
    if (!m_postfix.isEmpty() && text.endsWith(m_postfix))
        text.chop(m_postfix.size());
    return m_expandUnit ? unitExpanded(text) : text;
}

void TextEditController::valueChanged() { update(); }

void TextEditController::valueChangedRequest()
{
    valueChanged();
    const int now = value();
    announceValue(this, now);
    Q_EMIT valueChanged(now);
}

void TextEditController::edit()
{
    if (!isEnabled() || isTyping())
        return;
    m_lineEdit->setGeometry(rect());
    m_lineEdit->setFont(font());
    m_lineEdit->setAlignment(m_alignment);
    QPalette blended = palette();
    blended.setBrush(QPalette::Base, blended.window());
    m_lineEdit->setPalette(blended);
    m_lineEdit->setAccessibleName(controlName(this, *this));
    m_lineEdit->setText(editText());
    m_openingText = m_lineEdit->text();
    m_lineEdit->selectAll();
    m_lineEdit->show();
    m_lineEdit->setFocus(Qt::OtherFocusReason);
    if (m_lineEdit->hasFocus())
        Q_EMIT textEdit(true);
    else
        m_lineEdit->hide();
}

void TextEditController::editFinish()
{
    if (!isTyping() || m_lineEdit->isHeld())
        return;
    closeEditor();
    const QString typed = m_lineEdit->text();
    if (typed != m_openingText && typed != editText())
        submit(typed);
    Q_EMIT textEdit(false);
}

void TextEditController::editCancel()
{
    if (!isTyping())
        return;
    m_lineEdit->setText(editText());
    closeEditor();
    Q_EMIT textEdit(false);
}

void TextEditController::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isEnabled()) {
        QWidget::mousePressEvent(event);
        return;
    }
    if (event->modifiers() == Qt::ControlModifier)
        resetToDefault(event->modifiers());
    else
        startDrag(event->position().toPoint(), event->modifiers());
}

void TextEditController::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    if (!(event->buttons() & Qt::LeftButton) || !m_dragging || point == m_drag.lastPoint() ||
        !isEnabled())
        return;
    const bool fine = LinearDrag::isFine(event->modifiers());
    if (m_drag.isFine() != fine)
        m_drag.reanchor(value(), fine);
    const ModifierReport report(*this, event->modifiers());
    setValue(m_drag.valueAt(point, minimumValue(), maximumValue(), scale(), ValueStep));
    if (report.isDue())
        Q_EMIT modifiersChange(this, report.modifiers());
    m_drag.setLastPoint(point);
}

void TextEditController::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        QWidget::mouseReleaseEvent(event);
    else if (m_dragging)
        endDrag();
}

void TextEditController::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        edit();
    else
        QWidget::mouseDoubleClickEvent(event);
}

void TextEditController::wheelEvent(QWheelEvent* event)
{
    event->accept();
    if (!isEnabled() || isTyping())
        return;
    setFocus(Qt::OtherFocusReason);
    const ModifierReport report(*this, event->modifiers());
    const std::int64_t steps = m_wheel.steps(*event, ValueStep);
    editValue(saturateToInt(value() + steps));
    if (report.isDue())
        Q_EMIT modifiersChange(this, report.modifiers());
}

void TextEditController::keyPressEvent(QKeyEvent* event)
{
    const bool reacts = isEnabled() && !isTyping();
    // These would move through the text, so they are not the window's to use either.
    if (reacts && (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)) {
        event->accept();
        return;
    }
    const std::optional<int> target = reacts ? keyTarget(event->key()) : std::nullopt;
    if (!target) {
        QWidget::keyPressEvent(event);
        return;
    }
    const ModifierReport report(*this, event->modifiers());
    editValue(*target);
    event->accept();
    if (report.isDue())
        Q_EMIT modifiersChange(this, report.modifiers());
}

void TextEditController::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::EnabledChange || isEnabled())
        return;
    m_lineEdit->setHeld(false);
    editFinish();
    endDrag();
}

void TextEditController::resizeEvent(QResizeEvent* event)
{
    if (isTyping())
        m_lineEdit->resize(size());
    QWidget::resizeEvent(event);
}

void TextEditController::hideEvent(QHideEvent* event)
{
    m_lineEdit->setHeld(false);
    editFinish();
    endDrag();
    QWidget::hideEvent(event);
}

void TextEditController::paintEvent(QPaintEvent*)
{
    const QString text = shownText();
    if (text.isEmpty())
        return;
    QPainter painter(this);
    const QRect field = rect().adjusted(scaledMargin(m_textLeftMargin, scale()), 0,
                                        -scaledMargin(m_textRightMargin, scale()), 0);
    painter.drawText(field, static_cast<int>(m_alignment) | Qt::TextSingleLine, text);
}

void TextEditController::startDrag(QPoint point, Qt::KeyboardModifiers modifiers)
{
    endDrag();
    openEdit();
    // Whoever overrides beginEdit() may have ended the gesture already.
    if (!isEditing())
        return;
    m_dragging = true;
    m_drag.begin(point, value(), LinearDrag::isFine(modifiers));
    Q_EMIT drag(true);
}

void TextEditController::endDrag()
{
    const bool wasDragging = std::exchange(m_dragging, false);
    closeEdits();
    if (wasDragging)
        Q_EMIT drag(false);
}

void TextEditController::resetToDefault(Qt::KeyboardModifiers modifiers)
{
    const ModifierReport report(*this, modifiers);
    editToDefault();
    if (report.isDue())
        Q_EMIT modifiersChange(this, report.modifiers());
}

bool TextEditController::isTyping() const { return !m_lineEdit->isHidden(); }

void TextEditController::closeEditor()
{
    const bool wasHeld = m_lineEdit->isHeld();
    m_lineEdit->setHeld(true);
    if (m_lineEdit->hasFocus())
        setFocus(Qt::OtherFocusReason);
    m_lineEdit->hide();
    m_lineEdit->setHeld(wasHeld);
}

void TextEditController::submit(const QString& typed)
{
    const ModifierReport report(*this, QGuiApplication::keyboardModifiers());
    editString(m_expandUnit ? unitExpanded(typed) : typed);
    if (report.isDue())
        Q_EMIT modifiersChange(this, report.modifiers());
}

std::optional<int> TextEditController::keyTarget(int key) const
{
    switch (key) {
    case Qt::Key_Up:
        return saturateToInt(std::int64_t{value()} + ValueStep);
    case Qt::Key_Down:
        return saturateToInt(std::int64_t{value()} - ValueStep);
    case Qt::Key_PageUp:
        return saturateToInt(std::int64_t{value()} + 10 * ValueStep);
    case Qt::Key_PageDown:
        return saturateToInt(std::int64_t{value()} - 10 * ValueStep);
    default:
        return std::nullopt;
    }
}

QString TextEditController::hostText() const { return m_textTrim ? string().trimmed() : string(); }

QString TextEditController::shownText() const
{
    const QString text = hostText();
    return text.endsWith(m_postfix) ? text : text + m_postfix;
}

} // namespace CommonController_MemAPI

#include "moc_TextEditController.cpp"
