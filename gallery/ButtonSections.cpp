// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ButtonGroupController.h"
#include "controls/PullDownButtonController.h"
#include "controls/PushButtonController.h"
#include "effect/EffectStyle.h"
#include "gallery/GalleryControls.h"
#include "gallery/GallerySection.h"
#include "gallery/GallerySections.h"

#include <QCoreApplication>
#include <QEnterEvent>
#include <QPainter>
#include <QStyleFactory>

using namespace Gallery;
using CommonController_MemAPI::ButtonGroupController;
using CommonController_MemAPI::PullDownButtonController;
using CommonController_MemAPI::PushButtonController;
using CommonController_MemAPI::PullDownButtonControllerPrivate::Menu;

namespace {

constexpr QSize lampSize(28, 28);
constexpr QSize switchSize(37, 48);
constexpr QSize textButtonSize(76, 34);
constexpr QSize pullDownSize(120, 26);

/// A cell whose picture shows \a button under the pointer with the mouse button held, though
/// nothing is written.
void addHeld(GallerySection& section, PushButtonController* button, const QString& caption)
{
    const auto press = [button] {
        const QPointF middle = QRectF(button->rect()).center();
        QEnterEvent enter(middle, middle, middle);
        QCoreApplication::sendEvent(button, &enter);
        button->setDown(true);
    };
    const auto release = [button] {
        button->setDown(false);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(button, &leave);
    };
    section.addStaged(button, caption, press, release);
}

PushButtonController* lamp(bool on, double scale = 1.0)
{
    auto* button = new PushButtonController;
    button->setCheckable(true);
    button->setButtonSvg(artwork("btn_off_up.svg"));
    button->setPushButtonSvg(artwork("btn_orange_dw.svg"));
    button->setOnButtonSvg(artwork("btn_orange_up.svg"));
    button->setButtonDisableOpacity(disabledOpacity);
    button->setValue(on ? 1 : 0);
    return zoomed(button, lampSize, scale);
}

PushButtonController* boundLamp(HostMemory& memory, int channel, bool on, double scale = 1.0)
{
    PushButtonController* button = lamp(on, scale);
    bindAt(*button, memory, "fx_rackfx_prm_8", channel, on ? 1.0 : 0.0);
    return button;
}

PushButtonController* driveSwitch(bool on)
{
    auto* button = new PushButtonController;
    button->setCheckable(true);
    button->setCheckTrigger(PushButtonController::Press | PushButtonController::On |
                            PushButtonController::Off);
    button->setButtonSvg(artwork("sw_crean.svg"));
    button->setPushButtonSvg(artwork("sw_crean.svg"));
    button->setOnButtonSvg(artwork("sw_drive.svg"));
    button->setOnPushButtonSvg(artwork("sw_drive.svg"));
    button->setValue(on ? 1 : 0);
    return zoomed(button, switchSize);
}

PushButtonController* textButton(bool checkable, double scale = 1.0)
{
    auto* button = new PushButtonController;
    button->setCheckable(checkable);
    button->setText(checkable ? QStringLiteral("MUTE") : QStringLiteral("TAP"));
    button->setFont(font(12.0 * scale));
    button->setPalette(textPalette());
    button->setButtonSvg(image("button_up.svg"));
    button->setPushButtonSvg(image("button_dw.svg"));
    button->setOnButtonSvg(image("button_on_up.svg"));
    button->setOnPushButtonSvg(image("button_on_dw.svg"));
    button->setShadowSvg(image("button_shadow.svg"));
    button->setButtonDisableOpacity(disabledOpacity);
    return zoomed(button, textButtonSize, scale);
}

PushButtonController* iconButton(bool on)
{
    PushButtonController* button = textButton(true);
    button->setText(QString());
    button->setIconSvg(image("icon_off.svg"));
    button->setOnIconSvg(image("icon_on.svg"));
    button->setValue(on ? 1 : 0);
    return button;
}

/// Buttons take the focus only where a form lets them.
template <class Button> Button* withFocus(Button* button)
{
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

template <class Button> Button* switchedOn(Button* button)
{
    button->setValue(button->maximumValue());
    return button;
}

void addLamps(GallerySection& section, HostMemory& memory)
{
    section.addRow(QStringLiteral("Switch, bound"));
    section.add(boundLamp(memory, 0, false), QStringLiteral("off"));
    addHeld(section, boundLamp(memory, 1, false), QStringLiteral("off, held"));
    section.add(boundLamp(memory, 2, true), QStringLiteral("on"));
    addHeld(section, boundLamp(memory, 3, true), QStringLiteral("on, held"));
    section.add(disabled(boundLamp(memory, 4, false)), QStringLiteral("disabled"));
    section.add(disabled(boundLamp(memory, 5, true)), QStringLiteral("disabled, on"));
    for (const double scale : scales)
        section.add(boundLamp(memory, 6, true, scale), times(scale));
    section.add(driveSwitch(false), QStringLiteral("off"));
    section.add(driveSwitch(true), QStringLiteral("on"));
}

PushButtonController* translucentButton()
{
    PushButtonController* button = switchedOn(textButton(true));
    button->setOpacity(0.5);
    return button;
}

void addTextButtons(GallerySection& section)
{
    section.addRow(QStringLiteral("Text and shadow, unbound"));
    section.add(textButton(true), QStringLiteral("off"));
    addHeld(section, textButton(true), QStringLiteral("off, held"));
    section.add(switchedOn(textButton(true)), QStringLiteral("on"));
    addHeld(section, switchedOn(textButton(true)), QStringLiteral("on, held"));
    section.add(disabled(textButton(true)), QStringLiteral("disabled"));
    section.add(disabled(switchedOn(textButton(true))), QStringLiteral("disabled, on"));
    section.add(translucentButton(), QStringLiteral("opacity 0.5"));
    section.addFocused(withFocus(textButton(true)));
    section.addRow(QStringLiteral("Icon; momentary; scales"));
    section.add(iconButton(false), QStringLiteral("off"));
    section.add(iconButton(true), QStringLiteral("on"));
    section.add(textButton(false), QStringLiteral("momentary"));
    addHeld(section, textButton(false), QStringLiteral("momentary, held"));
    for (const double scale : scales)
        section.add(switchedOn(textButton(true, scale)), times(scale));
}

const QStringList filters = {QStringLiteral("HPF 12"), QStringLiteral("HPF 6"),
                             QStringLiteral("Shelf 6"), QStringLiteral("Shelf 12")};

PullDownButtonController* pullDown(double scale = 1.0)
{
    auto* button = new PullDownButtonController;
    button->setFont(font(12.0 * scale));
    button->setPalette(textPalette());
    button->setButtonSvg(image("pull_down_up.svg"));
    button->setPushButtonSvg(image("pull_down_dw.svg"));
    button->setButtonDisableOpacity(disabledOpacity);
    button->setTextLeftMargin(8);
    button->setTextRightMargin(28);
    button->setTextList(filters);
    button->setEmptyText(QStringLiteral("no filter"));
    button->setInvisibleText(QStringLiteral("hidden"));
    return zoomed(button, pullDownSize, scale);
}

PullDownButtonController* boundPullDown(HostMemory& memory, int channel, int value,
                                        double scale = 1.0)
{
    PullDownButtonController* button = pullDown(scale);
    bindAt(*button, memory, "fx_rackfx_prm_1", channel, value / 3.0);
    return button;
}

PullDownButtonController* emptyPullDown()
{
    PullDownButtonController* button = pullDown();
    button->setTextList({});
    return button;
}

PullDownButtonController* hiddenPullDown()
{
    PullDownButtonController* button = pullDown();
    button->setVisibleList({false});
    return button;
}

/// A picture of the menu that a pull-down button opens: the same class, with the same items, in the
/// editor's style.
class MenuPicture : public QWidget
{
public:
    MenuPicture(int indexWidth, int indexMargin, bool highlighted, double scale);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    EffectStyle m_style;
    PullDownButtonController* m_button;
    Menu* m_menu;
};

MenuPicture::MenuPicture(int indexWidth, int indexMargin, bool highlighted, double scale)
    : m_style(QStyleFactory::create(QStringLiteral("Fusion")))
    , m_button(pullDown(scale))
{
    m_button->setParent(this);
    m_button->hide();
    m_button->setStyle(&m_style);
    m_button->setIndexWidth(indexWidth);
    m_button->setIndexMargin(indexMargin);
    m_menu = new Menu(m_button);
    for (int i = 0; i < filters.size(); ++i) {
        const QString text =
            indexWidth > 0 ? QStringLiteral("%1 %2").arg(i + 1).arg(filters[i]) : filters[i];
        m_menu->addAction(text)->setEnabled(i != 3);
    }
    m_menu->actions().at(1)->setCheckable(true);
    m_menu->actions().at(1)->setChecked(true);
    if (highlighted)
        m_menu->setActiveAction(m_menu->actions().at(2));
    m_menu->resize(m_menu->sizeHint());
    resize(m_menu->size());
}

void MenuPicture::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const double ratio = painter.deviceTransform().m11();
    QImage picture((QSizeF(size()) * ratio).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    m_menu->render(&picture);
    painter.drawImage(0, 0, picture);
}

void addMenus(GallerySection& section)
{
    section.addRow(QStringLiteral("Its menu in the editor's style"));
    section.add(new MenuPicture(0, 0, false, 1.0), QStringLiteral("plain"));
    section.add(new MenuPicture(0, 0, true, 1.0), QStringLiteral("highlighted"));
    section.add(new MenuPicture(16, 0, true, 1.0), QStringLiteral("numbers"));
    section.add(new MenuPicture(16, 8, true, 1.0), QStringLiteral("numbers and a line"));
    section.add(new MenuPicture(16, 8, true, 2.0), QStringLiteral("button × 2"));
}

PushButtonController* memberButton(const QString& text, QWidget* group, int place)
{
    PushButtonController* button = textButton(true);
    button->setParent(group);
    button->setText(text);
    button->move(place * textButtonSize.width(), 0);
    return button;
}

/// A group of \a count buttons of which the one at \a value is on.
ButtonGroupController* buttonGroup(int count, int value)
{
    auto* group = new ButtonGroupController;
    group->setEnableDefaultSet(true);
    for (int i = 0; i < count; ++i)
        memberButton(QString(QLatin1Char(static_cast<char>('A' + i))), group, i)
            ->setValue(i == value ? 1 : 0);
    group->resize(count * textButtonSize.width(), textButtonSize.height());
    group->setValue(value);
    return group;
}

} // namespace

GallerySection* makePushButtonSection(HostMemory& memory, QWidget* parent)
{
    auto* section = new GallerySection(QStringLiteral("PushButtonController"), parent);
    addLamps(*section, memory);
    addTextButtons(*section);
    return section;
}

GallerySection* makePullDownSection(HostMemory& memory, QWidget* parent)
{
    auto* section = new GallerySection(QStringLiteral("PullDownButtonController"), parent);
    section->addRow(QStringLiteral("Bound"));
    for (int value = 0; value <= 3; ++value)
        section->add(boundPullDown(memory, value, value), QStringLiteral("value %1").arg(value));
    section->add(disabled(boundPullDown(memory, 4, 2)), QStringLiteral("disabled"));
    section->addRow(QStringLiteral("Unbound"));
    section->add(pullDown(), QStringLiteral("value 0"));
    addHeld(*section, pullDown(), QStringLiteral("held"));
    section->add(emptyPullDown(), QStringLiteral("empty list"));
    section->add(hiddenPullDown(), QStringLiteral("hidden item"));
    section->addFocused(withFocus(pullDown()));
    section->addRow(QStringLiteral("Scales"));
    for (const double scale : scales)
        section->add(boundPullDown(memory, 5, 3, scale), times(scale));
    addMenus(*section);
    return section;
}

GallerySection* makeButtonGroupSection(HostMemory& memory, QWidget* parent)
{
    auto* section = new GallerySection(QStringLiteral("ButtonGroupController"), parent);
    section->addRow(QStringLiteral("Unbound"));
    for (int value = 0; value <= 3; ++value)
        section->add(buttonGroup(3, value), QStringLiteral("value %1").arg(value));
    section->addRow(QStringLiteral("Bound; disabled"));
    ButtonGroupController* bound = buttonGroup(4, 2);
    bindAt(*bound, memory, "fx_rackfx_prm_21", 0, 2.0 / 3.0);
    section->add(bound, QStringLiteral("value 2"));
    section->add(disabled(buttonGroup(4, 1)), QStringLiteral("disabled"));
    return section;
}
