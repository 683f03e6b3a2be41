// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/HandleGuide.h"

#include "host/analysis/ReadoutText.h"
#include "hosting/HostMemory.h"

#include <QAccessible>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStringList>

#include <algorithm>

namespace {

constexpr int ringMargin = 4; // around the handle
constexpr qreal ringWidth = 1.5;
constexpr int bubbleDistance = 12;

class Ring : public QWidget
{
public:
    explicit Ring(QWidget* parent)
        : QWidget(parent)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::BrightText), ringWidth));
        painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
    }
};

} // namespace

HandleGuide::HandleGuide(const HostMemory& memory, int channel, QWidget* graph)
    : QObject(graph)
    , m_memory(memory)
    , m_channel(channel)
    , m_graph(graph)
    , m_ring(new Ring(graph))
    , m_bubble(new QLabel(graph, Qt::ToolTip | Qt::WindowTransparentForInput))
{
    m_bubble->setObjectName(QStringLiteral("handleBubble"));
    m_bubble->setAttribute(Qt::WA_ShowWithoutActivating);
    m_bubble->setMargin(6);
    graph->setMouseTracking(true);
    graph->installEventFilter(this);
}

bool HandleGuide::eventFilter(QObject* watched, QEvent* event)
{
    const auto position = [event] {
        return static_cast<QMouseEvent*>(event)->position().toPoint();
    };
    if (watched != m_graph)
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::MouseMove && !m_isHeld)
        pointAt(bandAt(position()));
    else if (event->type() == QEvent::MouseButtonPress &&
             static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        press(bandAt(position()));
    else if (event->type() == QEvent::MouseButtonRelease)
        release();
    else if (event->type() == QEvent::Paint && m_band >= 0)
        QMetaObject::invokeMethod(this, &HandleGuide::refresh, Qt::QueuedConnection);
    else if ((event->type() == QEvent::Leave && !m_isHeld) || event->type() == QEvent::Hide)
        pointAt(-1);
    return false;
}

QAccessibleInterface* HandleGuide::handle(int band) const
{
    const QAccessibleInterface* graph = QAccessible::queryAccessibleInterface(m_graph);
    return graph && band >= 0 ? graph->child(band) : nullptr;
}

int HandleGuide::bandAt(QPoint position) const
{
    const QAccessibleInterface* graph = QAccessible::queryAccessibleInterface(m_graph);
    const QPoint point = m_graph->mapToGlobal(position);
    return graph ? graph->indexOfChild(graph->childAt(point.x(), point.y())) : -1;
}

void HandleGuide::pointAt(int band)
{
    if (band == m_band)
        return;
    m_band = band;
    if (band >= 0)
        m_graph->setCursor(Qt::PointingHandCursor);
    else
        m_graph->unsetCursor();
    refresh();
}

void HandleGuide::press(int band)
{
    pointAt(band);
    m_isHeld = band >= 0;
    refresh();
}

void HandleGuide::release()
{
    if (!std::exchange(m_isHeld, false))
        return;
    if (QAccessibleInterface* held = handle(m_band))
        held->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    refresh();
}

void HandleGuide::refresh()
{
    const QAccessibleInterface* shown = handle(m_band);
    const bool isShown = shown && !shown->rect().isEmpty();
    m_ring->setVisible(isShown && !m_isHeld);
    if (!isShown) {
        m_bubble->hide();
        return;
    }
    const QRect place(m_graph->mapFromGlobal(shown->rect().topLeft()), shown->rect().size());
    m_ring->setGeometry(place.marginsAdded({ringMargin, ringMargin, ringMargin, ringMargin}));
    m_bubble->setText(text());
    m_bubble->adjustSize();
    m_bubble->move(bubblePlace());
    m_bubble->show();
}

QString HandleGuide::text() const
{
    const QAccessibleInterface* shown = handle(m_band);
    QStringList parts = shown->text(QAccessible::Value).split(QStringLiteral(", "));
    parts.insert(1, noteName(bandOf(m_memory.values(m_channel), m_band).frequency));
    return QStringLiteral("<b>%1</b>&nbsp;&nbsp; %2")
        .arg(shown->text(QAccessible::Name), parts.join(QStringLiteral(" \u00b7 ")));
}

// Above the handle, or below it where there is no room.
QPoint HandleGuide::bubblePlace() const
{
    const QRect handleRect = handle(m_band)->rect();
    const QRect room = m_graph->screen()->availableGeometry();
    const QSize size = m_bubble->size();
    const int left = handleRect.center().x() - size.width() / 2;
    const int above = handleRect.top() - bubbleDistance - size.height();
    return {std::clamp(left, room.left(), std::max(room.left(), room.right() - size.width())),
            above >= room.top() ? above : handleRect.bottom() + bubbleDistance};
}

#include "moc_HandleGuide.cpp"
