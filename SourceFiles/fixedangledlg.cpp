#include "fixedangledlg.h"

#include "ui_FixedAngleDlg.h"

#include "angletablewidget.h"
#include "configurationwatch.h"
#include "helpdialog.h"
#include "linkobserver.h"
#include "scopedflag.h"
#include "settings/fixedangles.h"
#include "support/configurationquestion.h"
#include "waiting.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QMessageBox>
#include <QPointer>
#include <QScopeGuard>
#include <QScreen>
#include <QVector>

#include <array>

FixedAngleDlg::FixedAngleDlg(IOManager *iom, QWidget *parent, BackendVersions *beVers)
    : QDialog(parent),
      m_observer(new LinkObserver(this)),
      m_link(iom, beVers, m_observer),
      m_ui(std::make_unique<Ui::FixedAngleDlg>()),
      m_table(new AngleTableWidget(beVers, this)),
      m_configuration(new ConfigurationWatch(iom, this))
{
    m_ui->setupUi(this);
    m_ui->messageLine->follow(m_observer);
    m_table->setObjectName(QStringLiteral("tableWidget"));
    m_table->setAccessibleName(tr("Fixed angles of the standard bodies"));
    m_table->setWhatsThis(tr("Adjust the fixed angles of the standard bodies"));
    m_ui->verticalLayout->insertWidget(0, m_table);
    setTabOrder(m_table, m_ui->pushButton_help);
    resizeToFont();
}

FixedAngleDlg::~FixedAngleDlg()
{
    m_link.close();
}

int FixedAngleDlg::update_and_exec()
{
    if (m_link.protocolAtLeast(1, 6)) {
        const Waiting waiting(m_observer, Waiting::For::Refresh,
                              tr("Reading the fixed angles ..."));
        const QPointer<FixedAngleDlg> self(this);
        QList<FixedAngleBody *> bodies;
        const auto release = qScopeGuard([&bodies] { qDeleteAll(bodies); });
        m_configuration->restart();
        get_fixed_angle_info(bodies);
        if (!self)
            return Rejected;
        m_table->fill_in_table(bodies);
    }
    m_table->setFocus();
    return exec();
}

void FixedAngleDlg::get_fixed_angle_info(QList<FixedAngleBody *> &bodies) const
{
    const QPointer<const FixedAngleDlg> self(this);
    const ControllerLink link = m_link;
    const FixedAngles angles(link, this);
    const int count = angles.count();
    for (int number = 1; self && number <= count; ++number) {
        link.progress(number, count);
        bodies.append(new FixedAngleBody(angles.read(number)));
    }
}

bool FixedAngleDlg::save_fix_angle_settings()
{
    QVector<FixedAngleBody> bodies;
    QStringList unread;
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const auto body = m_table->body(row);
        if (!body) {
            warn(tr("There is invalid data."));
            return false;
        }
        // The zeros that are shown for angles that were never read must not overwrite those angles.
        if (!m_table->isUnread(row))
            bodies.append(*body);
        else if (m_table->isTouched(row))
            unread.append(shownName(*body));
    }
    const Waiting waiting(m_observer, Waiting::For::Action, tr("Writing the fixed angles ..."));
    const QPointer<FixedAngleDlg> self(this);
    const FixedAngles angles(m_link, this);
    QStringList refused;
    for (const FixedAngleBody &body : qAsConst(bodies)) {
        const bool done = angles.write(body);
        if (!self)
            return false;
        if (!done)
            refused.append(shownName(body));
    }
    return report(refused, unread);
}

QString FixedAngleDlg::shownName(const FixedAngleBody &body)
{
    return QString::asprintf("b%02d ", body.body_id) + body.body_des;
}

/** Shows the bodies that were refused or not read; true when both lists are empty. */
bool FixedAngleDlg::report(const QStringList &refused, const QStringList &unread)
{
    QStringList problems;
    if (!refused.isEmpty()) {
        //: %1 is a list of body numbers and names, for example "b02 Head, b03 Chair"
        problems << tr("The controller refused the fixed angles of %1.")
                            .arg(refused.join(QStringLiteral(", ")));
    }
    if (!unread.isEmpty()) {
        //: %1 is a list of body numbers and names, for example "b02 Head, b03 Chair"
        problems << tr("The fixed angles of %1 could not be read. Set all three angles and boxes "
                       "to write them.")
                            .arg(unread.join(QStringLiteral(", ")));
    }
    if (problems.isEmpty())
        return true;
    warn(problems.join(QLatin1Char('\n')));
    return false;
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
    // A host may run its event loop inside an operation, in which another click must not start a
    // second OK.
    if (m_writing)
        return;
    const QPointer<FixedAngleDlg> self(this);
    const ScopedFlag writing(this, &m_writing, true);
    if (m_table->rowCount() > 0 && !mayStillWrite(m_configuration, this))
        return;
    if (save_fix_angle_settings() && self)
        accept();
}

void FixedAngleDlg::on_pushButton_cancel_clicked()
{
    if (!m_writing)
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
    // The resize event of the first opening comes before the table has its own size.
    fitColumns();
}

void FixedAngleDlg::resizeToFont()
{
    constexpr int characters = 80;
    constexpr int lines = 20;
    const QSize wanted(fontMetrics().averageCharWidth() * characters,
                       fontMetrics().lineSpacing() * lines);
    const QScreen *screen = QGuiApplication::primaryScreen();
    resize(size().expandedTo(screen ? wanted.boundedTo(screen->availableSize()) : wanted));
}

void FixedAngleDlg::fitColumns()
{
    // Shares of the width in percent, and the width of a number with its box in any font.
    constexpr int idShare = 10;
    constexpr int angleShare = 18;
    const int width = m_table->viewport()->width();
    const int id =
            qMax(width * idShare / 100, fontMetrics().horizontalAdvance(QStringLiteral("0000")));
    const int angle = qMax(width * angleShare / 100, m_table->leastAngleWidth());
    const int leastName = fontMetrics().averageCharWidth() * 8;
    const std::array<int, 4> widths{id, qMax(width - id - 3 * angle, leastName), angle, angle};
    int rest = width;
    for (int column = 0; column < int(widths.size()); ++column) {
        m_table->setColumnWidth(column, widths[column]);
        rest -= widths[column];
    }
    m_table->setColumnWidth(int(widths.size()), qMax(rest, m_table->leastAngleWidth()));
}
