// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/TextEditController.h"

#include "controls/ControlAccessible.h"
#include "controls/Placement.h"
#include "controls/TextEditControllerLineEdit.h"
#include "controls/UnitText.h"
#include "controls/WideInteger.h"
#include "widgets/TextPixels.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace CommonController_MemAPI {

namespace {

constexpr int ValueStep = 1;

} // namespace

TextEditController::TextEditController(QWidget* parent)
    : QWidget(parent)
    , m_lineEdit(new TextEditControllerPrivate::LineEdit(this, [this] { editCancel(); }))
    , m_gesture(*this)
{
    setFocusPolicy(Qt::ClickFocus);
    connect(m_lineEdit, &QLineEdit::editingFinished, this, &TextEditController::editFinish);
    m_lineEdit->setMaxLength(m_textMaxLength);
    registerAccessible(staticMetaObject, makeAccessible<TextEditController, QAccessible::SpinBox>);
}

TextEditController::~TextEditController()
{
    m_gesture.end();
    editCancel();
    m_lineEdit->retire();
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
    const Lifetime::Guard alive(lifetime());
    if (m_gesture.end())
        editCancel();
    if (alive)
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
    const Lifetime::Guard alive(lifetime());
    valueChanged();
    const int now = value();
    announceValue(this, now);
    if (alive)
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
    const Lifetime::Guard alive(lifetime());
    m_lineEdit->show();
    m_lineEdit->setFocus(Qt::OtherFocusReason);
    if (!alive)
        return;
    if (m_lineEdit->hasFocus())
        Q_EMIT textEdit(true);
    else
        m_lineEdit->hide();
}

void TextEditController::editFinish()
{
    if (!isTyping() || m_lineEdit->isHeld())
        return;
    const Lifetime::Guard alive(lifetime());
    closeEditor();
    if (alive)
        submit(m_lineEdit->text());
    if (alive)
        Q_EMIT textEdit(false);
}

void TextEditController::editCancel()
{
    if (!isTyping())
        return;
    const Lifetime::Guard alive(lifetime());
    m_lineEdit->setText(editText());
    closeEditor();
    if (alive)
        Q_EMIT textEdit(false);
}

void TextEditController::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isEnabled()) {
        QWidget::mousePressEvent(event);
        return;
    }
    if (event->modifiers() == Qt::ControlModifier)
        m_gesture.resetToDefault(event->modifiers());
    else
        startDrag(event->position().toPoint(), event->modifiers());
}

void TextEditController::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_gesture.isMove(*event, m_drag.lastPoint()))
        return;
    const Lifetime::Guard alive(lifetime());
    const QPoint point = event->position().toPoint();
    const bool fine = LinearDrag::isFine(event->modifiers());
    if (m_drag.isFine() != fine)
        m_drag.reanchor(value(), fine);
    const auto [minimum, maximum] = range();
    m_gesture.setValue(m_drag.valueAt(point, minimum, maximum, scale(), ValueStep),
                       event->modifiers());
    if (alive)
        m_drag.setLastPoint(point);
}

void TextEditController::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        QWidget::mouseReleaseEvent(event);
    else if (m_gesture.isDragging())
        m_gesture.end();
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
    const Lifetime::Guard alive(lifetime());
    setFocus(Qt::OtherFocusReason);
    if (alive)
        m_gesture.editBy(m_wheel.steps(*event, ValueStep), event->modifiers());
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
    event->accept();
    m_gesture.edit(*target, event->modifiers());
}

void TextEditController::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::EnabledChange || isEnabled())
        return;
    finish();
}

void TextEditController::resizeEvent(QResizeEvent* event)
{
    if (isTyping())
        m_lineEdit->resize(size());
    QWidget::resizeEvent(event);
}

void TextEditController::hideEvent(QHideEvent* event)
{
    if (finish())
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
    const int flags = static_cast<int>(m_alignment) | Qt::TextSingleLine;
    TextPixels::draw(painter, {text, field, flags, painter.pen().brush()},
                     [&] { painter.drawText(field, flags, text); });
}

void TextEditController::startDrag(QPoint point, Qt::KeyboardModifiers modifiers)
{
    if (!m_gesture.open())
        return;
    m_drag.begin(point, value(), LinearDrag::isFine(modifiers));
    m_gesture.start();
}

bool TextEditController::finish()
{
    const Lifetime::Guard alive(lifetime());
    m_lineEdit->setHeld(false);
    editFinish();
    return alive && m_gesture.end();
}

bool TextEditController::isTyping() const { return !m_lineEdit->isHidden(); }

void TextEditController::closeEditor()
{
    const Lifetime::Guard alive(lifetime());
    const bool wasHeld = m_lineEdit->isHeld();
    m_lineEdit->setHeld(true);
    if (m_lineEdit->hasFocus())
        setFocus(Qt::OtherFocusReason);
    if (!alive)
        return;
    m_lineEdit->hide();
    m_lineEdit->setHeld(wasHeld);
}

void TextEditController::submit(const QString& typed)
{
    if (typed != m_openingText && typed != editText())
        m_gesture.editString(m_expandUnit ? unitExpanded(typed) : typed,
                             QGuiApplication::keyboardModifiers());
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
