#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class HelpDialog;
}

/** The help page on fixed angles, as a short modal dialog. Owned by the dialog that opens it. */
class HelpDialog final : public QDialog {
    Q_OBJECT

public:
    explicit HelpDialog(QWidget *parent = nullptr);
    ~HelpDialog() override;

private slots:
    void on_pushButton_close_clicked();

private:
    static QString page();

    std::unique_ptr<Ui::HelpDialog> m_ui;
};
