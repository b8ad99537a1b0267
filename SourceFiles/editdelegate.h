#pragma once

#include <QItemDelegate>

/**
 * Edits a name in a table cell and accepts only characters that a command line can carry.
 *
 * Stateless; one object may serve several columns. Owned by its QObject parent.
 */
class EditDelegate : public QItemDelegate {
    Q_OBJECT

public:
    explicit EditDelegate(QObject *parent = nullptr);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    /**
     * Shows the cell's text. After that the editor refuses every character that a name cannot
     * contain.
     */
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    /** Writes the editor's text to the cell; does nothing when the text is not a valid name. */
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
};
