#pragma once

#include <QItemDelegate>

/**
 * Edits a name in a table cell and lets only those signs through that a command line can carry.
 *
 * Stateless; one object may serve several columns. Owned by its QObject parent.
 */
class EditDelegate : public QItemDelegate {
    Q_OBJECT

public:
    explicit EditDelegate(QObject *parent = nullptr);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    /** Shows the cell's text; from then on the editor refuses every sign that a name cannot hold.
     */
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    /** Writes the editor's text to the cell; a text that is no valid name leaves the cell alone. */
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
};
