#include "fixedangledlg.h"

#include "ui_FixedAngleDlg.h"

#include "angletablewidget.h"
#include "helpdialog.h"
#include "linkobserver.h"
#include "waiting.h"

#include <QHeaderView>
#include <QMessageBox>
#include <QPointer>
#include <QScopeGuard>
#include <QVector>

#include <array>
#include <cmath>

FixedAngleDlg::FixedAngleDlg(IOManager *iom, QWidget *parent, BackendVersions *beVers)
    : QDialog(parent),
      m_observer(new LinkObserver(this)),
      m_link(iom, beVers, m_observer),
      m_ui(std::make_unique<Ui::FixedAngleDlg>()),
      m_table(new AngleTableWidget(beVers, this))
{
    m_ui->setupUi(this);
    m_ui->messageLine->follow(m_observer);
    m_table->setObjectName(QStringLiteral("tableWidget"));
    m_table->setAccessibleName(tr("Fixed angles of the standard bodies"));
    m_table->setWhatsThis(tr("Adjust the fixed angles of the standard bodies"));
    m_ui->verticalLayout->insertWidget(0, m_table);
    setTabOrder(m_table, m_ui->pushButton_help);
}

FixedAngleDlg::~FixedAngleDlg() = default;

int FixedAngleDlg::update_and_exec()
{
    if (m_link.protocolAtLeast(1, 6)) {
        const Waiting waiting(m_observer, Waiting::For::Refresh,
                              tr("Reading the fixed angles ..."));
        QList<FixedAngleBody *> bodies;
        const auto release = qScopeGuard([&bodies] { qDeleteAll(bodies); });
        get_fixed_angle_info(bodies);
        m_table->fill_in_table(bodies);
    }
    m_table->setFocus();
    return exec();
}

void FixedAngleDlg::get_fixed_angle_info(QList<FixedAngleBody *> &bodies) const
{
    const auto count = m_link.count("body number_of_bodies standard");
    if (!count)
        m_link.log(QStringLiteral("Error: Unable to check number of standard bodies"));
    const int bodyCount = count.value_or(0);
    for (int number = 1; number <= bodyCount; ++number) {
        m_link.progress(number, bodyCount);
        bodies.append(new FixedAngleBody(readBody(number)));
    }
}

FixedAngleBody FixedAngleDlg::readBody(int number) const
{
    FixedAngleBody body;
    body.body_id = number;
    const auto description = m_link.text("body desc standard b%.2d", number);
    if (!description)
        m_link.log(QStringLiteral("Error: Unable to check name of standard body"));
    body.body_des = description.value_or(QString());

    const auto calibrated = m_link.text("body calibrated standard b%.2d", number);
    if (!calibrated)
        m_link.log(
                QStringLiteral("Error: Unable to check the calibration status of standard body"));

    const auto targetType = m_link.text("body target_type standard b%.2d", number);
    if (!targetType)
        m_link.log(QStringLiteral("Error: Unable to check target type"));
    body.body_cali = calibrated == QLatin1String("yes")
                     && (targetType == QLatin1String("tt_std")
                         || targetType == QLatin1String("tt_2x5dof_cyl"));
    readAngles(&body);
    return body;
}

void FixedAngleDlg::readAngles(FixedAngleBody *body) const
{
    const auto answer = m_link.text("standard fixed_angle b%.2d", body->body_id);
    if (!answer) {
        m_link.log(QStringLiteral("Error: Unable to check fixed angle of standard body"));
        return;
    }
    const QStringList fields = answer->split(QLatin1Char(' '));
    for (int axis = 0; axis < int(body->fixed_angle.size()); ++axis) {
        body->fixed_angle_enable[axis] = fields.value(2 * axis) == QLatin1String("yes");
        const double degrees = fields.value(2 * axis + 1).toDouble();
        body->fixed_angle[axis] = std::isfinite(degrees) ? degrees : 0.0;
    }
    body->angles_known = true;
}

bool FixedAngleDlg::save_fix_angle_settings()
{
    QVector<FixedAngleBody> bodies;
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const auto body = m_table->body(row);
        if (!body) {
            warn(tr("There is invalid data."));
            return false;
        }
        // Angles that were never read must not be replaced by the zeros shown in their place.
        if (!m_table->isUnread(row))
            bodies.append(*body);
    }
    const Waiting waiting(m_observer, Waiting::For::Action, tr("Writing the fixed angles ..."));
    QStringList refused;
    for (const FixedAngleBody &body : qAsConst(bodies)) {
        if (!write(body))
            refused.append(QString::asprintf("b%02d ", body.body_id) + body.body_des);
    }
    if (refused.isEmpty())
        return true;
    //: %1 is a list of body numbers and names, for example "b02 Head, b03 Chair"
    warn(tr("The controller refused the fixed angles of %1.")
                 .arg(refused.join(QStringLiteral(", "))));
    return false;
}

bool FixedAngleDlg::write(const FixedAngleBody &body) const
{
    const auto word = [&body](int axis) { return body.fixed_angle_enable[axis] ? "yes" : "no"; };
    const bool done = m_link.set("standard fixed_angle b%.2d %s %f %s %f %s %f", body.body_id,
                                 word(0), body.fixed_angle[0], word(1), body.fixed_angle[1],
                                 word(2), body.fixed_angle[2]);
    if (!done)
        m_link.log(QStringLiteral("Error: Unable to set fixed angle of standard body"));
    return done;
}

void FixedAngleDlg::warn(const QString &text)
{
    const QPointer<QMessageBox> box =
            new QMessageBox(QMessageBox::Warning, tr("Fixed Angle"), text, QMessageBox::Ok, this);
    box->setTextFormat(Qt::PlainText);
    box->exec();
    delete box.data();
}

void FixedAngleDlg::on_pushButton_ok_clicked()
{
    if (save_fix_angle_settings())
        accept();
}

void FixedAngleDlg::on_pushButton_cancel_clicked()
{
    reject();
}

void FixedAngleDlg::on_pushButton_help_clicked()
{
    const QPointer<HelpDialog> help = new HelpDialog(this);
    help->exec();
    delete help.data();
}

void FixedAngleDlg::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    fitColumns();
}

void FixedAngleDlg::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    // The size event of the first opening comes before the table has its own size.
    fitColumns();
}

void FixedAngleDlg::fitColumns()
{
    // Shares of the width in percent; the last column takes the rest.
    constexpr std::array<int, 4> shares{10, 36, 18, 18};
    int rest = m_table->viewport()->width();
    const int width = rest;
    for (int column = 0; column < int(shares.size()); ++column) {
        m_table->setColumnWidth(column, width * shares[column] / 100);
        rest -= m_table->columnWidth(column);
    }
    m_table->setColumnWidth(int(shares.size()), rest);
}
