#include "editdelegate.h"

#include <QLineEdit>
#include <QRegularExpressionValidator>

EditDelegate::EditDelegate(QObject *parent) : QItemDelegate(parent) {}

QWidget *EditDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                    const QModelIndex &) const
{
    auto *editor = new QLineEdit(parent);
    editor->setFrame(false);
    return editor;
}

void EditDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *line = qobject_cast<QLineEdit *>(editor);
    if (!line)
        return;
    line->setText(index.data(Qt::EditRole).toString());
    // The view calls this function again whenever the cell changes under an open editor.
    if (!line->validator()) {
        static const QRegularExpression allowed(QStringLiteral("[0-9a-zA-Z_\\-\\+=.,;:/ ]*"));
        line->setValidator(new QRegularExpressionValidator(allowed, line));
    }
}

void EditDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                const QModelIndex &index) const
{
    const auto *line = qobject_cast<const QLineEdit *>(editor);
    if (line && line->hasAcceptableInput())
        model->setData(index, line->text(), Qt::EditRole);
}
