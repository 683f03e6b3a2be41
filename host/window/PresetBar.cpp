// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/PresetBar.h"

#include "host/window/DialogConnection.h"
#include "host/window/EditorPresets.h"
#include "host/window/HostTheme.h"
#include "host/window/PresetMenu.h"
#include "host/window/ToolBarExtension.h"

#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace {

constexpr int nameWidth = 200;
constexpr int namePadding = 40; // of the host's sheet, and the arrow

} // namespace

PresetBar::PresetBar(EditorPresets& presets, PresetMenu& menu, QMenu* entries, QWidget* parent)
    : QToolBar(parent)
    , m_presets(presets)
{
    setObjectName(QStringLiteral("presetBar")); // for the window's state
    m_texts.add([this] { setWindowTitle(tr("Presets")); });
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    applyHostSheet(this);
    addWidget(m_texts.label(this, [] { return tr("Preset"); }));
    QToolButton* previous =
        addButton(QStringLiteral("\u2039"), [] { return tr("Previous preset"); });
    connect(
        previous, &QToolButton::clicked, &presets, [&presets] { presets.step(-1); }, opensDialog);
    addName(entries);
    QToolButton* next = addButton(QStringLiteral("\u203a"), [] { return tr("Next preset"); });
    connect(
        next, &QToolButton::clicked, &presets, [&presets] { presets.step(1); }, opensDialog);
    m_save = addButton(QString(), [] { return tr("Save the preset"); });
    m_texts.add([this] { m_save->setText(tr("Save")); });
    connect(m_save, &QToolButton::clicked, &menu, &PresetMenu::save, opensDialog);
    addRoom();
    completeToolBar(*this, m_texts);
    connect(&presets, &EditorPresets::changed, this, &PresetBar::follow);
    m_texts.add([this] { follow(); });
}

void PresetBar::changeEvent(QEvent* event)
{
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_texts.retranslate();
}

QToolButton* PresetBar::addButton(const QString& picture, const Retranslator::Text& name)
{
    auto* button = new QToolButton(this);
    button->setText(picture);
    m_texts.add([button, name] {
        button->setToolTip(name());
        button->setAccessibleName(name());
    });
    addWidget(button);
    return button;
}

// A long name is cut, so that nothing beside it moves.
void PresetBar::addName(QMenu* entries)
{
    m_name = new QToolButton(this);
    m_name->setPopupMode(QToolButton::InstantPopup);
    m_name->setMenu(entries);
    m_name->setFixedWidth(nameWidth);
    m_texts.add([this] { m_name->setToolTip(tr("Choose, rename and delete presets")); });
    addWidget(m_name);
}

// What is added later stands at the other end.
void PresetBar::addRoom()
{
    auto* room = new QWidget(this);
    room->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(room);
}

void PresetBar::follow()
{
    const std::optional<PresetName> current = m_presets.current();
    const bool modified = m_presets.isModified();
    const QString name = current ? EditorPresets::shownName(*current) : tr("No preset");
    const QString mark = modified ? QStringLiteral(" *") : QString();
    const QFontMetrics metrics = m_name->fontMetrics();
    const int room = nameWidth - namePadding - metrics.horizontalAdvance(mark);
    QString shown = metrics.elidedText(name, Qt::ElideRight, room);
    m_name->setText(shown.replace(QLatin1Char('&'), QLatin1String("&&")) + mark);
    m_name->setAccessibleName(modified ? tr("Preset: %1, modified").arg(name)
                                       : tr("Preset: %1").arg(name));
    m_save->setEnabled(modified || !m_presets.isOwn());
}

#include "moc_PresetBar.cpp"
