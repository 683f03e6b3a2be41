// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/PresetMenu.h"

#include "host/window/DialogConnection.h"
#include "host/window/EditorPresets.h"
#include "host/window/MessageDialog.h"
#include "parameters/FactoryPresets.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QInputDialog>
#include <QMenu>
#include <QUrl>

PresetMenu::PresetMenu(QMenu* menu, EditorPresets& presets, Retranslator::Text suggestion,
                       Retranslator& texts)
    : QObject(menu)
    , m_menu(menu)
    , m_presets(presets)
    , m_suggestion(std::move(suggestion))
{
    fillFactory(texts);
    menu->addSeparator();
    fillActions(texts);
    menu->addSeparator();
    fillUser();
    connect(menu, &QMenu::aboutToShow, this, &PresetMenu::fillUser);
    connect(&presets, &EditorPresets::changed, this, &PresetMenu::follow);
}

void PresetMenu::save()
{
    if (m_presets.isOwn())
        m_presets.save(m_presets.current()->name);
    else
        saveAs();
}

void PresetMenu::fillFactory(Retranslator& texts)
{
    QMenu* factory = texts.menu(m_menu, [] { return tr("&Factory"); });
    factory->setToolTipsVisible(true);
    for (const FactoryPreset& preset : factoryPresets()) {
        QAction* action = addChoice(factory, {QString::fromLatin1(preset.name), true});
        texts.add([action, &preset] {
            action->setText(QCoreApplication::translate("FactoryPreset", preset.name));
            action->setToolTip(QCoreApplication::translate("FactoryPreset", preset.hint));
        });
        m_factory << action;
    }
}

void PresetMenu::fillActions(Retranslator& texts)
{
    texts.action(
        m_menu, [] { return tr("&Previous"); }, QKeySequence(Qt::CTRL | Qt::Key_PageUp), this,
        [this] { m_presets.step(-1); }, opensDialog);
    texts.action(
        m_menu, [] { return tr("&Next"); }, QKeySequence(Qt::CTRL | Qt::Key_PageDown), this,
        [this] { m_presets.step(1); }, opensDialog);
    m_menu->addSeparator();
    m_save = texts.action(
        m_menu, [] { return tr("Save Preset A&gain"); }, QKeySequence(), this, &PresetMenu::save,
        opensDialog);
    texts.action(
        m_menu, [] { return tr("&Save as Preset..."); }, QKeySequence(), this, &PresetMenu::saveAs,
        opensDialog);
    m_rename = texts.action(
        m_menu, [] { return tr("&Rename..."); }, QKeySequence(), this, &PresetMenu::rename,
        opensDialog);
    m_deletion = texts.menu(m_menu, [] { return tr("&Delete"); });
    texts.action(
        m_menu, [] { return tr("Show F&older"); }, QKeySequence(), this, &PresetMenu::showFolder,
        opensDialog);
}

void PresetMenu::fillUser()
{
    qDeleteAll(m_users);
    m_users.clear();
    m_deletion->clear();
    for (const QString& name : m_presets.folder().names()) {
        QAction* choose = addChoice(m_menu, {name, false});
        m_users << choose;
        QAction* remove = m_deletion->addAction(choose->text());
        connect(
            remove, &QAction::triggered, this, [this, name] { askToDelete(name); }, opensDialog);
    }
    m_deletion->setEnabled(!m_users.isEmpty());
    follow();
}

// In a text an ampersand would mark a letter.
QAction* PresetMenu::addChoice(QMenu* menu, const PresetName& preset)
{
    QAction* action =
        menu->addAction(QString(preset.name).replace(QLatin1Char('&'), QLatin1String("&&")));
    action->setCheckable(true);
    action->setData(preset.name);
    connect(
        action, &QAction::triggered, this, [this, preset] { m_presets.load(preset); }, opensDialog);
    return action;
}

void PresetMenu::follow()
{
    const std::optional<PresetName> current = m_presets.current();
    for (const bool isFactory : {false, true}) {
        for (QAction* action : isFactory ? m_factory : m_users)
            action->setChecked(current == PresetName{action->data().toString(), isFactory});
    }
    m_save->setEnabled(m_presets.isOwn() && m_presets.isModified());
    m_rename->setEnabled(m_presets.isOwn());
}

void PresetMenu::saveAs()
{
    const QString title = tr("Save as Preset");
    const QString name = typedName(title, m_suggestion());
    if (!name.isEmpty() && mayTake(name, title))
        m_presets.save(name);
}

void PresetMenu::rename()
{
    if (!m_presets.isOwn())
        return;
    const QString before = m_presets.current()->name;
    const QString title = tr("Rename Preset");
    const QString name = typedName(title, before);
    if (!name.isEmpty() && name != before && mayTake(name, title))
        m_presets.rename(before, name);
}

void PresetMenu::askToDelete(const QString& name)
{
    if (MessageDialog::ask(window(), tr("Delete Preset"), tr("Delete the preset %1?").arg(name),
                           tr("Delete")))
        m_presets.remove(name);
}

void PresetMenu::showFolder()
{
    const Status made = m_presets.folder().prepare();
    if (!made.isOk())
        Q_EMIT m_presets.finished(made.error(), QString());
    else
        QDesktopServices::openUrl(QUrl::fromLocalFile(m_presets.folder().path()));
}

// Whether there is no preset of that name, or one that the user lets go.
bool PresetMenu::mayTake(const QString& name, const QString& title)
{
    return !m_presets.folder().contains(name) ||
           MessageDialog::ask(window(), title,
                              tr("A preset named %1 already exists. Replace it?").arg(name),
                              tr("Replace"));
}

// Asks until the name is a good one; empty if the user gives up, or if this was deleted meanwhile.
QString PresetMenu::typedName(const QString& title, const QString& suggestion)
{
    QString typed = suggestion;
    for (;;) {
        bool accepted = false;
        typed = QInputDialog::getText(window(), title, tr("Name of the preset"), QLineEdit::Normal,
                                      typed, &accepted);
        if (!accepted)
            return QString();
        const QString error = PresetFolder::checkName(typed.simplified()).error();
        if (error.isEmpty())
            return typed.simplified();
        if (!MessageDialog::warn(window(), title, error))
            return QString();
    }
}

QWidget* PresetMenu::window() const { return m_menu->parentWidget()->window(); }

#include "moc_PresetMenu.cpp"
