// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/AbstractController.h"
#include "controls/PropertyBounds.h"
#include "widgets/Export.h"
#include "widgets/SvgImage.h"

#include <QPushButton>

#include <array>

namespace CommonController_MemAPI {

/// A button over one parameter, drawn from up to eight SVG images and its text.
///
/// A checkable button is a switch: off at the parameter's minimum, on at any other value; switched
/// on it writes the maximum. Any other button is momentary: the maximum while it is held, the
/// minimum from then on. It lets go by itself when it is disabled, hidden, bound elsewhere or
/// destroyed while held, or when the application's focus moves, so that its parameter never stays
/// at the maximum.
///
/// To assistive technology it is a check box or a button, named by its accessible name, its text or
/// its parameter, and pressing it is a click.
///
/// Lengths are in pixels at scale 1.
class ZOLTA_EXPORT PushButtonController : public QPushButton, public AbstractController
{
    Q_OBJECT
    /// The blur radius of the shadow image; not negative.
    Q_PROPERTY(double shadowBlur READ shadowBlur WRITE setShadowBlur)
    /// The opacity, 0 to 1, of the button image while the button is disabled.
    Q_PROPERTY(double buttonDisableOpacity READ buttonDisableOpacity WRITE setButtonDisableOpacity)
    /// The image files. An image that is missing or broken leaves its layer blank; "on" images that
    /// are, leave theirs to the "off" ones.
    Q_PROPERTY(QString buttonSvg READ buttonSvg WRITE setButtonSvg)
    Q_PROPERTY(QString pushButtonSvg READ pushButtonSvg WRITE setPushButtonSvg)
    Q_PROPERTY(QString shadowSvg READ shadowSvg WRITE setShadowSvg)
    Q_PROPERTY(QString pushShadowSvg READ pushShadowSvg WRITE setPushShadowSvg)
    Q_PROPERTY(QString iconSvg READ iconSvg WRITE setIconSvg)
    Q_PROPERTY(QString onIconSvg READ onIconSvg WRITE setOnIconSvg)
    Q_PROPERTY(QString onButtonSvg READ onButtonSvg WRITE setOnButtonSvg)
    Q_PROPERTY(QString onPushButtonSvg READ onPushButtonSvg WRITE setOnPushButtonSvg)
    /// The insets of the text.
    Q_PROPERTY(int textLeftMargin READ textLeftMargin WRITE setTextLeftMargin)
    Q_PROPERTY(int textRightMargin READ textRightMargin WRITE setTextRightMargin)
    Q_PROPERTY(int textTopMargin READ textTopMargin WRITE setTextTopMargin)
    Q_PROPERTY(int textBottomMargin READ textBottomMargin WRITE setTextBottomMargin)
    /// Where the images, each of its own size, lie in the widget.
    Q_PROPERTY(Qt::Alignment svgAlignment READ svgAlignment WRITE setSvgAlignment)
    Q_PROPERTY(Qt::Alignment textAlignment READ textAlignment WRITE setTextAlignment)
    /// The opacity, 0 to 1, of everything.
    Q_PROPERTY(double opacity READ opacity WRITE setOpacity)
    /// How a click switches a checkable button; see setCheckTrigger().
    Q_PROPERTY(CheckTrigger checkTrigger READ checkTrigger WRITE setCheckTrigger)

public:
    /// When a click switches, and which way.
    enum CheckTriggerFlag {
        Press = 1,   ///< switches as the mouse button goes down
        Release = 2, ///< switches as it goes up, over the button
        On = 16,     ///< a click may switch on
        Off = 32     ///< a click may switch off
    };
    Q_DECLARE_FLAGS(CheckTrigger, CheckTriggerFlag)
    Q_FLAG(CheckTrigger)

    explicit PushButtonController(QWidget* parent = nullptr);
    ~PushButtonController() override;

    void setScale(double scale) override;
    void setMemAPIValue(IMemAPI* memAPI, unsigned short parameter, unsigned short ch,
                        unsigned short index) override;

    double shadowBlur() const { return m_shadowBlur; }
    void setShadowBlur(double radius) { store(m_shadowBlur, atLeast(0.0, radius)); }
    double buttonDisableOpacity() const { return m_buttonDisableOpacity; }
    void setButtonDisableOpacity(double opacity)
    {
        store(m_buttonDisableOpacity, within(0.0, 1.0, opacity));
    }
    QString buttonSvg() const { return svg(ButtonLayer); }
    void setButtonSvg(const QString& path) { setSvg(ButtonLayer, path); }
    QString pushButtonSvg() const { return svg(PushButtonLayer); }
    void setPushButtonSvg(const QString& path) { setSvg(PushButtonLayer, path); }
    QString shadowSvg() const { return svg(ShadowLayer); }
    void setShadowSvg(const QString& path) { setSvg(ShadowLayer, path); }
    QString pushShadowSvg() const { return svg(PushShadowLayer); }
    void setPushShadowSvg(const QString& path) { setSvg(PushShadowLayer, path); }
    QString iconSvg() const { return svg(IconLayer); }
    void setIconSvg(const QString& path) { setSvg(IconLayer, path); }
    QString onIconSvg() const { return svg(OnIconLayer); }
    void setOnIconSvg(const QString& path) { setSvg(OnIconLayer, path); }
    QString onButtonSvg() const { return svg(OnButtonLayer); }
    void setOnButtonSvg(const QString& path) { setSvg(OnButtonLayer, path); }
    QString onPushButtonSvg() const { return svg(OnPushButtonLayer); }
    void setOnPushButtonSvg(const QString& path) { setSvg(OnPushButtonLayer, path); }
    int textLeftMargin() const { return m_textLeftMargin; }
    void setTextLeftMargin(int margin) { store(m_textLeftMargin, margin); }
    int textRightMargin() const { return m_textRightMargin; }
    void setTextRightMargin(int margin) { store(m_textRightMargin, margin); }
    int textTopMargin() const { return m_textTopMargin; }
    void setTextTopMargin(int margin) { store(m_textTopMargin, margin); }
    int textBottomMargin() const { return m_textBottomMargin; }
    void setTextBottomMargin(int margin) { store(m_textBottomMargin, margin); }
    Qt::Alignment svgAlignment() const { return m_svgAlignment; }
    void setSvgAlignment(Qt::Alignment alignment) { store(m_svgAlignment, alignment); }
    Qt::Alignment textAlignment() const { return m_textAlignment; }
    void setTextAlignment(Qt::Alignment alignment) { store(m_textAlignment, alignment); }
    double opacity() const { return m_opacity; }
    void setOpacity(double opacity) { store(m_opacity, within(0.0, 1.0, opacity)); }
    CheckTrigger checkTrigger() const { return m_checkTrigger; }
    /// Keeps exactly one of Press and Release and at least one of On and Off, by what changes: of
    /// two edges the new one stays, no edge becomes the other one than before, and no direction
    /// becomes Off if there was On before, else On.
    void setCheckTrigger(CheckTrigger trigger);

    /// Switches a checkable, enabled button as a click would, whatever the trigger allows. Does
    /// nothing to a button that is in that state.
    void setOn();
    /// The same the other way.
    void setOff();

Q_SIGNALS:
    /// The control was refreshed and has \a value.
    void valueChanged(int value);
    /// A click with keyboard \a modifiers held changed the value of \a pController, this button.
    void modifiersChange(AbstractController* pController, Qt::KeyboardModifiers modifiers);
    /// The pointer came over the button or left it.
    void sideChanged();

protected:
    /// Follows the value with the checked state, without writing back.
    void valueChanged() override;

private Q_SLOTS:
    void valueChangedRequest() override;
    virtual void buttonPress();
    virtual void buttonRelease();
    virtual void buttonToggle(bool checked);
    void focusChange();

protected:
    bool hitButton(const QPoint& position) const override;
    /// What a click does to the checked state: nothing where the trigger forbids it.
    void nextCheckState() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    /// Writes the maximum for on, the minimum for off, as one gesture.
    virtual void writeState(bool on);
    /// The text to paint.
    virtual QString shownText() const;
    /// Ends a press that the user goes on holding, as if he had let go.
    void letGo();
    /// Whether the pointer is in the widget.
    bool isHovered() const { return m_hovered; }
    /// Whether the pointer was over the button when it was last heard of: outside while a press is
    /// dragged off the button.
    bool isInside() const { return m_inside; }

private:
    enum Layer {
        ButtonLayer,
        PushButtonLayer,
        ShadowLayer,
        PushShadowLayer,
        IconLayer,
        OnIconLayer,
        OnButtonLayer,
        OnPushButtonLayer,
        LayerCount
    };

    QString svg(Layer layer) const { return m_images[layer].path(); }
    void setSvg(Layer layer, const QString& path);
    template <typename Value> void store(Value& member, Value value)
    {
        if (value == member)
            return;
        member = value;
        update();
    }

    bool maySwitch() const;
    bool isOn() const { return isCheckable() ? isChecked() : isDown(); }
    void setCheckedSilently(bool checked);
    void switchTo(bool on);
    void endClick(QMouseEvent* event);
    /// Releases a button that loses the focus or is disabled, where QAbstractButton would do the
    /// same and then go on with a button that is gone. Whether it is still there.
    bool releaseEarly();
    void setInside(bool inside);

    SvgImage& loadedOr(Layer preferred, bool applies, Layer otherwise);
    QRectF imageRect(const SvgImage& image) const;
    void drawShadow(QPainter& painter, bool pushed);
    void drawButton(QPainter& painter, bool pushed);
    void drawIcon(QPainter& painter);
    void drawText(QPainter& painter) const;

    std::array<SvgImage, LayerCount> m_images;
    double m_shadowBlur = 2.0;
    double m_buttonDisableOpacity = 1.0;
    int m_textLeftMargin = 0;
    int m_textRightMargin = 0;
    int m_textTopMargin = 0;
    int m_textBottomMargin = 0;
    Qt::Alignment m_svgAlignment = Qt::AlignCenter;
    Qt::Alignment m_textAlignment = Qt::AlignCenter;
    double m_opacity = 1.0;
    CheckTrigger m_checkTrigger = CheckTrigger(Release | On | Off);

    QMetaObject::Connection m_focusConnection;
    bool m_syncing = false;
    bool m_hovered = false;
    bool m_inside = false;
    bool m_held = false; // a momentary button wrote the maximum and not yet the minimum
    bool m_letGo = false;
    Qt::KeyboardModifiers m_modifiers; // of the last mouse press or release
};

Q_DECLARE_OPERATORS_FOR_FLAGS(PushButtonController::CheckTrigger)

} // namespace CommonController_MemAPI
