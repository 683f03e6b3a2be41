// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/AbstractController.h"
#include "controls/EditGesture.h"
#include "controls/LinearDrag.h"
#include "controls/WheelAccumulator.h"
#include "widgets/Export.h"

#include <QWidget>

#include <optional>

namespace CommonController_MemAPI {

namespace TextEditControllerPrivate {
class LineEdit;
}

/// A parameter as text, in the host's wording. It is changed by dragging on the text, with the
/// wheel and the keyboard, and by typing into an inline editor that a double click opens. What is
/// typed goes to the host to be parsed.
///
/// The editor is committed by Return, when it loses the focus and when the control is hidden or
/// disabled; Escape, rebinding and destroying the control discard it.
class ZOLTA_EXPORT TextEditController : public QWidget, public AbstractController
{
    Q_OBJECT
    Q_PROPERTY(QString string READ string WRITE setString)
    Q_PROPERTY(QString postfix READ postfix WRITE setPostfix)
    Q_PROPERTY(bool expandUnit READ expandUnit WRITE setExpandUnit)
    Q_PROPERTY(Qt::Alignment alignment READ alignment WRITE setAlignment)
    Q_PROPERTY(bool textTrim READ textTrim WRITE setTextTrim)
    Q_PROPERTY(int textLeftMargin READ textLeftMargin WRITE setTextLeftMargin)
    Q_PROPERTY(int textRightMargin READ textRightMargin WRITE setTextRightMargin)
    Q_PROPERTY(int textMaxLength READ textMaxLength WRITE setTextMaxLength)

public:
    explicit TextEditController(QWidget* parent = nullptr);
    ~TextEditController() override;

    void setScale(double scale) override;
    void setMemAPIValue(IMemAPI* memAPI, unsigned short parameter, unsigned short ch,
                        unsigned short index) override;

    /// Shown after the text, unless it ends so already; not part of what is edited.
    QString postfix() const { return m_postfix; }
    void setPostfix(const QString& postfix);
    /// Whether a last letter k, M or G of what is edited stands for a factor, in either case.
    bool expandUnit() const { return m_expandUnit; }
    void setExpandUnit(bool expand);
    Qt::Alignment alignment() const { return m_alignment; }
    void setAlignment(Qt::Alignment alignment);
    /// Whether white space around the host's text is left out.
    bool textTrim() const { return m_textTrim; }
    void setTextTrim(bool trim);
    /// Pixels beside the text, multiplied by the scale.
    int textLeftMargin() const { return m_textLeftMargin; }
    void setTextLeftMargin(int pixels);
    int textRightMargin() const { return m_textRightMargin; }
    void setTextRightMargin(int pixels);
    /// How many characters can be typed, 0 or more.
    int textMaxLength() const { return m_textMaxLength; }
    void setTextMaxLength(int characters);

    /// What the inline editor starts with: the text without its postfix, its unit expanded.
    QString editText() const;

Q_SIGNALS:
    /// The control was refreshed and has \a value.
    void valueChanged(int value);
    /// The user changed the value of \a pController while \a modifiers were held.
    void modifiersChange(AbstractController* pController, Qt::KeyboardModifiers modifiers);
    /// A drag begins or ends.
    void drag(bool);
    /// The inline editor opened or closed.
    void textEdit(bool edit);

protected:
    void valueChanged() override;

private Q_SLOTS:
    void valueChangedRequest() override;

public Q_SLOTS:
    /// Opens the inline editor, if the control is enabled and can take the focus.
    void edit();
    /// Closes the inline editor and submits what was typed.
    void editFinish();
    /// Closes the inline editor and submits nothing.
    void editCancel();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void startDrag(QPoint point, Qt::KeyboardModifiers modifiers);
    /// Commits and ends what is under way; whether the control is still there.
    bool finish();
    bool isTyping() const;
    void closeEditor();
    void submit(const QString& typed);
    std::optional<int> keyTarget(int key) const;
    QString hostText() const;
    QString shownText() const;

    TextEditControllerPrivate::LineEdit* m_lineEdit; ///< a child of this
    QString m_postfix;
    bool m_expandUnit = false;
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
    bool m_textTrim = false;
    int m_textLeftMargin = 0;
    int m_textRightMargin = 0;
    int m_textMaxLength = 10;

    EditGesture m_gesture;
    LinearDrag m_drag;
    WheelAccumulator m_wheel;
    QString m_openingText; ///< what the editor held before the user typed
};

} // namespace CommonController_MemAPI
