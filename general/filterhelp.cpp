#include "filterhelp.h"

#include "ui_filterhelp.h"

FilterHelp::FilterHelp(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::FilterHelp>())
{
    ui->setupUi(this);
}

FilterHelp::~FilterHelp() = default;

void FilterHelp::on_pushButton_exit_clicked()
{
    close();
}
