#include "bodysettingsdlg.h"

#include "ui_BodySettingsDlg.h"

#include "configurationwatch.h"
#include "editdelegate.h"
#include "fixedangledlg.h"
#include "linkobserver.h"
#include "scopedflag.h"
#include "support/configurationquestion.h"
#include "waiting.h"

#include <QHeaderView>
#include <QMap>
#include <QPointer>

namespace {

/**
 * Role on an item of the "Name" column for the name as it was read; invalid when reading failed.
 */
constexpr int readRole = Qt::UserRole;

} // namespace

BodySettingsDlg::BodySettingsDlg(IOManager *iom, QWidget *parent, BackendVersions *beVers, QString)
    : QDialog(parent),
      m_iom(iom),
      m_beVers(beVers),
      m_observer(new LinkObserver(this)),
      m_link(iom, beVers, m_observer),
      m_ui(std::make_unique<Ui::BodySettingsDlg>()),
      m_nameDelegate(new EditDelegate(this)),
      m_configuration(new ConfigurationWatch(iom, this))
{
    m_ui->setupUi(this);
    m_ui->messageLine->follow(m_observer);
    setupTable();
    show_fixed_angle_button(true);
}

BodySettingsDlg::~BodySettingsDlg()
{
    m_link.close();
}

void BodySettingsDlg::setupTable()
{
    QTableWidget *table = m_ui->tableWidget;
    table->setColumnCount(ColumnCount);
    table->setHorizontalHeaderLabels({tr("ID"), tr("Name"), tr("State")});
    table->horizontalHeader()->setSectionsClickable(false);
    table->horizontalHeader()->setStretchLastSection(true);
    table->verticalHeader()->hide();
    table->setItemDelegateForColumn(NameColumn, m_nameDelegate);
    // Tab leaves the table, so that the buttons can be reached without a mouse.
    table->setTabKeyNavigation(false);
}

int BodySettingsDlg::update_and_exec()
{
    // Reading again would discard the names that the user has typed.
    if (isVisible()) {
        raise();
        activateWindow();
        return Rejected;
    }
    // While the dialog waits for an answer, a host may run its event loop and call this function
    // again.
    if (m_busy)
        return Rejected;
    {
        const QPointer<BodySettingsDlg> self(this);
        const ScopedFlag reading(this, &m_busy, true);
        m_configuration->restart();
        updateTable();
        if (!self)
            return Rejected;
    }
    m_ui->tableWidget->setEnabled(canRename());
    m_ui->pushButton_ok->setEnabled(canRename());
    if (m_ui->tableWidget->rowCount() > 0)
        m_ui->tableWidget->setCurrentCell(0, NameColumn);
    m_ui->tableWidget->setFocus();
    return exec();
}

void BodySettingsDlg::updateTable()
{
    const Waiting waiting(m_observer, Waiting::For::Refresh, tr("Reading names ..."));
    const QPointer<BodySettingsDlg> self(this);
    const ControllerLink link = m_link;
    const auto count = link.count("body number_of_bodies standard");
    if (!count)
        link.log(QStringLiteral("Error: Unable to get number of standard bodies"));
    if (!self)
        return;
    const int rows = count.value_or(0);
    m_ui->tableWidget->setRowCount(rows);
    for (int row = 0; row < rows; ++row) {
        link.progress(row + 1, rows);
        const Body body = readBody(link, row + 1);
        if (!self)
            return;
        fillRow(row, body);
    }
}

BodySettingsDlg::Body BodySettingsDlg::readBody(const ControllerLink &link, int number)
{
    Body body;
    body.name = link.text("body desc standard b%.2d", number);
    if (!body.name)
        link.log(QStringLiteral("Error: Unable to get name of standard body"));
    const auto calibrated = link.text("body calibrated standard b%.2d", number);
    if (!calibrated) {
        link.log(QStringLiteral("Error: Unable to get the calibration status of standard body"));
    }
    body.isCalibrated = calibrated == QLatin1String("yes");
    return body;
}

void BodySettingsDlg::fillRow(int row, const Body &body)
{
    QTableWidget *table = m_ui->tableWidget;
    auto *id = new QTableWidgetItem(QString::number(row + 1));
    id->setFlags(Qt::ItemIsEnabled);
    table->setItem(row, IdColumn, id);

    auto *name = new QTableWidgetItem(body.name.value_or(QString()));
    name->setData(readRole, body.name ? QVariant(*body.name) : QVariant());
    name->setFlags(canRename() ? Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsEnabled
                               : Qt::ItemFlags(Qt::ItemIsEnabled));
    table->setItem(row, NameColumn, name);

    auto *state = new QTableWidgetItem(body.isCalibrated ? tr("calibrated") : tr("not calibrated"));
    state->setFlags(Qt::ItemIsEnabled);
    table->setItem(row, StateColumn, state);
}

QStringList BodySettingsDlg::get_current_body_names() const
{
    QStringList names;
    for (int row = 0; row < m_ui->tableWidget->rowCount(); ++row) {
        const QTableWidgetItem *name = m_ui->tableWidget->item(row, NameColumn);
        names.append(name ? name->text() : QString());
    }
    return names;
}

/** True when the name was not read completely and the user has not entered another one. */
bool BodySettingsDlg::isUnread(int row) const
{
    const QTableWidgetItem *item = m_ui->tableWidget->item(row, NameColumn);
    const QVariant read = item ? item->data(readRole) : QVariant();
    if (!item || item->text() != read.toString())
        return false;
    // A garbled character would overwrite the one that the controller holds, and a single quote
    // would end the line early.
    const QString name = read.toString();
    return !read.isValid() || name.contains(QChar::ReplacementCharacter)
           || name.count(QLatin1Char('"')) % 2 != 0;
}

void BodySettingsDlg::saveBodySettings()
{
    const Waiting waiting(m_observer, Waiting::For::Action, tr("Writing names ..."));
    const QStringList names = get_current_body_names();
    QMap<int, QByteArray> written;
    for (int row = 0; row < names.size(); ++row) {
        // Without the quotes the line would end before its value.
        if (!isUnread(row)) {
            written.insert(row + 1, names.at(row).trimmed().isEmpty()
                                            ? QByteArrayLiteral("\"\"")
                                            : ControllerLink::argument(names.at(row)));
        }
    }
    const QPointer<BodySettingsDlg> self(this);
    const ControllerLink link = m_link;
    for (auto each = written.constBegin(); self && each != written.constEnd(); ++each) {
        if (!link.set("body desc standard b%.2d %s", each.key(), each.value().constData()))
            link.log(QStringLiteral("Error: Unable to set name of standard body"));
    }
}

void BodySettingsDlg::show_fixed_angle_button(bool show)
{
    m_ui->pushButton_special->setVisible(show);
    if (!show)
        return;
    const bool known = m_link.protocolAtLeast(1, 6);
    if (!known)
        m_link.log(QStringLiteral("TrackingSettings: Old version of Controller"));
    m_ui->pushButton_special->setEnabled(known);
}

void BodySettingsDlg::on_pushButton_ok_clicked()
{
    // A host may run its event loop inside an operation, in which another click must not start a
    // second OK.
    if (m_busy)
        return;
    const QPointer<BodySettingsDlg> self(this);
    const ScopedFlag writing(this, &m_busy, true);
    if (m_ui->tableWidget->rowCount() > 0 && !mayStillWrite(m_configuration, this))
        return;
    saveBodySettings();
    if (self)
        accept();
}

void BodySettingsDlg::on_pushButton_cancel_clicked()
{
    if (!m_busy)
        reject();
}

void BodySettingsDlg::on_pushButton_special_clicked()
{
    // Code that deletes this dialog meanwhile also deletes its child.
    const QPointer<FixedAngleDlg> dialog = new FixedAngleDlg(m_iom, this, m_beVers);
    dialog->update_and_exec();
    delete dialog.data();
}

void BodySettingsDlg::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    fitColumns();
}

void BodySettingsDlg::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    // The resize event of the first opening comes before the table has its own size.
    fitColumns();
}

void BodySettingsDlg::fitColumns()
{
    // Shares of the width in percent; the last column takes the rest.
    constexpr int idShare = 12;
    constexpr int nameShare = 53;
    QTableWidget *table = m_ui->tableWidget;
    const int width = table->viewport()->width();
    table->setColumnWidth(IdColumn, width * idShare / 100);
    table->setColumnWidth(NameColumn, width * nameShare / 100);
    table->setColumnWidth(StateColumn,
                          width - table->columnWidth(IdColumn) - table->columnWidth(NameColumn));
}
