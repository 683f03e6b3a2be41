// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/ParameterDelegate.h"

#include "host/window/ParameterListModel.h"

#include <QComboBox>
#include <QLineEdit>

QWidget* ParameterDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                         const QModelIndex& index) const
{
    if (index.flags().testFlag(Qt::ItemIsUserCheckable))
        return nullptr;
    const QStringList choices = index.data(ParameterListModel::ChoicesRole).toStringList();
    QWidget* editor = choices.isEmpty() ? QStyledItemDelegate::createEditor(parent, option, index)
                                        : createChoice(parent, choices);
    if (auto* field = qobject_cast<QLineEdit*>(editor))
        field->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
    editor->setAccessibleName(
        index.siblingAtColumn(ParameterListModel::TitleColumn).data().toString());
    return editor;
}

QWidget* ParameterDelegate::createChoice(QWidget* parent, const QStringList& choices) const
{
    auto* box = new QComboBox(parent);
    box->addItems(choices);
    auto* self = const_cast<ParameterDelegate*>(this);
    connect(box, &QComboBox::activated, self, [self, box] {
        Q_EMIT self->commitData(box);
        Q_EMIT self->closeEditor(box);
    });
    QMetaObject::invokeMethod(box, &QComboBox::showPopup, Qt::QueuedConnection);
    return box;
}

void ParameterDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    if (auto* box = qobject_cast<QComboBox*>(editor))
        return box->setCurrentText(index.data(Qt::EditRole).toString());
    QStyledItemDelegate::setEditorData(editor, index);
}

void ParameterDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                     const QModelIndex& index) const
{
    if (const auto* box = qobject_cast<QComboBox*>(editor))
        model->setData(index, box->currentText());
    else
        QStyledItemDelegate::setModelData(editor, model, index);
}

#include "moc_ParameterDelegate.cpp"
