#pragma once

#include <QString>
#include <QTableWidget>

/**
 * A table that stays readable. It is wide enough for its names, shows cut texts as tool tips, draws
 * a frame around the current cell that is visible on a selected row, keeps the colours of icons
 * there, and shows a hint while it has no rows.
 *
 * The stretched columns are those that show names.
 */
class AdministrationTable final : public QTableWidget {
    Q_OBJECT
    Q_PROPERTY(QString hint READ hint WRITE setHint)

public:
    explicit AdministrationTable(QWidget *parent = nullptr);
    ~AdministrationTable() override;

    /** What the operator can do while the table has no rows; translated. */
    QString hint() const { return m_hint; }
    void setHint(const QString &hint);

    /** The size for all columns with their complete texts, and for a moderate number of rows. */
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    void columnResized(int column);
    void contentsChanged();
    void fitLater();
    void fit();
    int leastWidth() const;
    int widthAroundColumns() const;
    void paintCurrentCell();
    bool showCutText(const QPoint &position, const QPoint &globalPosition);

    QString m_hint;
    int m_formWidth = -1; ///< the minimum width that the form gives, in pixels
    bool m_isFitPending = false;
};
