#include "bodysettingsdlg.h"

#include "ui_BodySettingsDlg.h"

#include "editdelegate.h"
#include "fixedangledlg.h"
#include "linkobserver.h"
#include "waiting.h"

#include <QHeaderView>
#include <QPointer>

namespace {

enum Column { IdColumn, NameColumn, StateColumn, ColumnCount };

/** On the item of the "Name" column: the name was never read. */
constexpr int unreadRole = Qt::UserRole;

} // namespace

BodySettingsDlg::BodySettingsDlg(IOManager *iom, QWidget *parent, BackendVersions *beVers, QString)
    : QDialog(parent),
      m_iom(iom),
      m_beVers(beVers),
      m_observer(new LinkObserver(this)),
      m_link(iom, beVers, m_observer),
      m_ui(std::make_unique<Ui::BodySettingsDlg>()),
      m_nameDelegate(new EditDelegate(this))
{
    m_ui->setupUi(this);
    m_ui->messageLine->follow(m_observer);
    setupTable();
    show_fixed_angle_button(true);
}

BodySettingsDlg::~BodySettingsDlg() = default;

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
    // Reading again would take the names away that the user has typed.
    if (isVisible()) {
        raise();
        activateWindow();
        return Rejected;
    }
    updateTable();
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
    const auto count = m_link.count("body number_of_bodies standard");
    if (!count)
        m_link.log(QStringLiteral("Error: Unable to get number of standard bodies"));
    m_ui->tableWidget->setRowCount(qMax(0, count.value_or(0)));
    const int rows = m_ui->tableWidget->rowCount();
    for (int row = 0; row < rows; ++row) {
        m_link.progress(row + 1, rows);
        fillRow(row);
    }
}

void BodySettingsDlg::fillRow(int row)
{
    QTableWidget *table = m_ui->tableWidget;
    const int number = row + 1;
    auto *id = new QTableWidgetItem(QString::number(number));
    id->setFlags(Qt::ItemIsEnabled);
    table->setItem(row, IdColumn, id);

    const auto description = m_link.text("body desc standard b%.2d", number);
    if (!description)
        m_link.log(QStringLiteral("Error: Unable to get name of standard body"));
    auto *name = new QTableWidgetItem(description.value_or(QString()));
    name->setData(unreadRole, !description);
    name->setFlags(canRename() ? Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsEnabled
                               : Qt::ItemFlags(Qt::ItemIsEnabled));
    table->setItem(row, NameColumn, name);

    const auto calibrated = m_link.text("body calibrated standard b%.2d", number);
    if (!calibrated)
        m_link.log(QStringLiteral("Error: Unable to get the calibration status of standard body"));
    auto *state = new QTableWidgetItem(calibrated == QLatin1String("yes") ? tr("calibrated")
                                                                          : tr("not calibrated"));
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

void BodySettingsDlg::saveBodySettings()
{
    const Waiting waiting(m_observer, Waiting::For::Action, tr("Writing names ..."));
    const QStringList names = get_current_body_names();
    for (int row = 0; row < names.size(); ++row) {
        const QTableWidgetItem *item = m_ui->tableWidget->item(row, NameColumn);
        // A name that could not be read must not be replaced by the blank shown in its place.
        if (names.at(row).isEmpty() && item && item->data(unreadRole).toBool())
            continue;
        // Without the quotes the line would end before its value.
        const QByteArray name = names.at(row).isEmpty() ? QByteArrayLiteral("\"\"")
                                                        : ControllerLink::argument(names.at(row));
        if (!m_link.set("body desc standard b%.2d %s", row + 1, name.constData()))
            m_link.log(QStringLiteral("Error: Unable to set name of standard body"));
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
    saveBodySettings();
    accept();
}

void BodySettingsDlg::on_pushButton_cancel_clicked()
{
    reject();
}

void BodySettingsDlg::on_pushButton_special_clicked()
{
    // Whoever deletes this dialog meanwhile deletes its child with it.
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
    // The size event of the first opening comes before the table has its own size.
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
