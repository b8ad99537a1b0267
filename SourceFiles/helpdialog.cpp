#include "helpdialog.h"

#include "ui_HelpDialog.h"

HelpDialog::HelpDialog(QWidget *parent) : QDialog(parent), m_ui(std::make_unique<Ui::HelpDialog>())
{
    m_ui->setupUi(this);
    m_ui->textBrowser->setHtml(page());
}

HelpDialog::~HelpDialog() = default;

QString HelpDialog::page()
{
    const auto section = [](const QString &title, const QString &text) {
        return QStringLiteral("<h3>%1</h3><p>%2</p>").arg(title, text);
    };
    const auto picture = [](const char *name, const QString &caption) {
        return QStringLiteral("<p><img src=\"%1\"/><br/><i>%2</i></p>")
                .arg(QLatin1String(name), caption);
    };
    return section(tr("What a fixed angle does"),
                   tr("A standard body normally reports the three angles rx, ry and rz that the "
                      "cameras measure. A fixed angle replaces one of them by a number that stays "
                      "the same, however the body turns. The other angles and the position are "
                      "measured as before."))
           + picture(
                   ":/datadisplay.png",
                   tr("The data display: the marked angle ry of the first body is fixed and keeps "
                      "its number, while its other angles and its position follow the body."))
           + section(
                   tr("How to switch a fixed angle on"),
                   tr("Tick the box in the column rx, ry or rz of the body. To change the angle, "
                      "double-click the number, or press F2, and type the angle in degrees with a "
                      "decimal point. By keyboard the arrow keys choose the cell and the space "
                      "bar ticks its box. OK sends all rows to the controller, Cancel sends "
                      "none."))
           + picture(
                   ":/bodytable.png",
                   tr("The body table: a ticked angle is fixed to the number beside it, a grey row "
                      "cannot be changed."))
           + section(tr("Which angles are allowed"),
                     tr("An angle lies between -20.0 and 20.0 degrees. Whatever else is entered "
                        "turns into 0.00; angles are kept with two decimals."))
           + section(tr("Which bodies allow it"),
                     tr("The body has to be calibrated, and its target has to be a standard target "
                        "or a cylindrical one of two 5DOF targets. All other bodies are shown in "
                        "grey."));
}

void HelpDialog::on_pushButton_close_clicked()
{
    accept();
}
