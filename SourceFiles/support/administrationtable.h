#pragma once

#include <QString>
#include <QTableWidget>

/**
 * A table of the body administration that can be read: wide enough for its names, cut texts as tool
 * tips, a frame around the current cell that is seen on a selected row, icons that keep their
 * colours there, and a hint in place of rows that are not there.
 *
 * The stretched columns are the ones that names are shown in.
 */
class AdministrationTable final : public QTableWidget {
    Q_OBJECT
    Q_PROPERTY(QString hint READ hint WRITE setHint)

public:
    explicit AdministrationTable(QWidget *parent = nullptr);
    ~AdministrationTable() override;

    /** What the operator may do while the table has no rows; translated. */
    QString hint() const { return m_hint; }
    void setHint(const QString &hint);

    /** Room for all columns with their whole texts, and for a moderate number of rows. */
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
    int m_formWidth = -1; ///< the minimum that the form gives
    bool m_isFitPending = false;
};
