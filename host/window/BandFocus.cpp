// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/BandFocus.h"

#include "equalizer/EqualizerBands.h"

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

#include <array>

namespace {

// How the names of a band's controls begin.
constexpr std::array<QLatin1String, EqualizerBands::Count> prefixes = {
    QLatin1String("m_pLow"),     QLatin1String("m_pMiddle1"), QLatin1String("m_pMiddle2"),
    QLatin1String("m_pMiddle3"), QLatin1String("m_pMiddle4"), QLatin1String("m_pHigh")};
constexpr int none = -1;

int bandOfControl(const QString& name)
{
    for (std::size_t band = 0; band < prefixes.size(); ++band) {
        if (name.startsWith(prefixes[band]))
            return static_cast<int>(band);
    }
    return none;
}

QAccessibleInterface* graphOf(const QWidget* part)
{
    return part->inherits("ZoltaEqualizerGraph")
               ? QAccessible::queryAccessibleInterface(const_cast<QWidget*>(part))
               : nullptr;
}

int bandOf(const QWidget* part, const QPoint& place)
{
    if (QAccessibleInterface* graph = graphOf(part))
        return graph->indexOfChild(graph->childAt(place.x(), place.y()));
    return bandOfControl(part->objectName());
}

} // namespace

BandFocus::BandFocus(const QWidget* stage, QObject* parent)
    : QObject(parent)
    , m_stage(stage)
{
    QCoreApplication::instance()->installEventFilter(this);
}

void BandFocus::setBand(int band)
{
    if (band < 0 || band == m_band)
        return;
    m_band = band;
    Q_EMIT changed(band);
}

bool BandFocus::eventFilter(QObject* watched, QEvent* event)
{
    const auto* part = qobject_cast<const QWidget*>(watched);
    if (!part || !m_stage->isAncestorOf(part))
        return false;
    if (event->type() == QEvent::MouseButtonPress)
        follow(part, static_cast<const QMouseEvent*>(event)->globalPosition().toPoint());
    else if (event->type() == QEvent::Wheel)
        follow(part, static_cast<const QWheelEvent*>(event)->globalPosition().toPoint());
    else if (event->type() == QEvent::FocusIn || event->type() == QEvent::KeyPress)
        QMetaObject::invokeMethod(this, &BandFocus::followHandle, Qt::QueuedConnection);
    return false;
}

// A part of a control has no name of its own.
void BandFocus::follow(const QWidget* part, const QPoint& place)
{
    int band = none;
    for (; part && part != m_stage && band == none; part = part->parentWidget())
        band = bandOf(part, place);
    setBand(band);
}

// Once the focus is where the key has led it.
void BandFocus::followHandle()
{
    const QWidget* part = QApplication::focusWidget();
    if (!part || !m_stage->isAncestorOf(part))
        return;
    QAccessibleInterface* graph = graphOf(part);
    if (!graph)
        return follow(part, QPoint());
    if (const QAccessibleInterface* handle = graph->focusChild())
        setBand(graph->indexOfChild(handle));
}

#include "moc_BandFocus.cpp"
