#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class FilterHelp;
}

/**
 * The page that explains the 6DOF filter: strength, prediction and the filter modes.
 *
 * Stateless. The filter dialog makes it each time the user opens the help.
 */
class FilterHelp final : public QDialog {
    Q_OBJECT

public:
    explicit FilterHelp(QWidget *parent = nullptr);
    ~FilterHelp() override;

private slots:
    void on_pushButton_exit_clicked();

private:
    std::unique_ptr<Ui::FilterHelp> ui;
};
