#pragma once

#include <QString>
#include <QVector>

class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableWidget;
class QWidget;

/** The widgets of a tab's form that the tabs have in common; owned by the form. */
struct TabWidgets {
    QString type;                      ///< body type that targets are assigned to
    QTableWidget *bodyTable = nullptr; ///< the table whose current row receives a target
    QTableWidget *targetTable = nullptr;
    QPushButton *select = nullptr;
    QPushButton *deselect = nullptr;
    QPushButton *start = nullptr;
    QPushButton *stop = nullptr;
    QProgressBar *progressBar = nullptr;
    QLabel *resultLabel = nullptr;
    QPushButton *filter = nullptr;      ///< null when the page has none
    QPushButton *calibration = nullptr; ///< null when the page has none
    QComboBox *category = nullptr;      ///< null when the tab has no category filter
    QVector<QWidget *> searchControls;  ///< disabled while a search runs
    QVector<QWidget *> editControls;    ///< disabled while the configuration is locked
};

/** The widgets that the forms of all tabs name alike; the others are filled in by the tab. */
template <typename Form>
TabWidgets commonTabWidgets(const Form &form)
{
    TabWidgets widgets;
    widgets.targetTable = form.tableWidget_targetlibrary;
    widgets.select = form.pushButton_select;
    widgets.deselect = form.pushButton_deselect;
    widgets.start = form.pushButton_start;
    widgets.stop = form.pushButton_stop;
    widgets.progressBar = form.progressBar;
    widgets.resultLabel = form.label_targetlibrary;
    return widgets;
}
