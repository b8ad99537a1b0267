#include "SubstituteDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

SubstituteDialog::SubstituteDialog(const QString &module, const QString &request,
                                   const QString &effect, bool applicable, QWidget *parent)
    : QDialog(parent), m_result(new QLabel(tr("not applied yet"), this))
{
    setObjectName(QStringLiteral("substitute_") + module);
    setWindowTitle(tr("Substitute for %1").arg(module));
    setAttribute(Qt::WA_DeleteOnClose);

    auto *requestLabel = new QLabel(request, this);
    requestLabel->setObjectName(QStringLiteral("label_request"));
    requestLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *effectLabel = new QLabel(effect, this);
    effectLabel->setObjectName(QStringLiteral("label_effect"));
    m_result->setObjectName(QStringLiteral("label_result"));
    auto *form = new QFormLayout;
    form->addRow(tr("Request:"), requestLabel);
    form->addRow(tr("Effect:"), effectLabel);
    form->addRow(tr("Result:"), m_result);

    auto *applyButton = new QPushButton(tr("&Apply"), this);
    applyButton->setObjectName(QStringLiteral("pushButton_apply"));
    applyButton->setEnabled(applicable);
    auto *closeButton = new QPushButton(tr("&Close"), this);
    closeButton->setObjectName(QStringLiteral("pushButton_close"));
    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(applyButton, QDialogButtonBox::ApplyRole);
    buttons->addButton(closeButton, QDialogButtonBox::RejectRole);
    connect(applyButton, &QPushButton::clicked, this, &SubstituteDialog::applied);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &SubstituteDialog::closed);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

void SubstituteDialog::setResult(const QString &text)
{
    m_result->setText(text);
}
