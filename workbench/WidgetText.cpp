#include "WidgetText.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QModelIndex>
#include <QPlainTextEdit>
#include <QTextDocumentFragment>
#include <QVariant>

QString WidgetText::ofCheck(bool checked)
{
    return checked ? QStringLiteral("checked") : QStringLiteral("unchecked");
}

QString WidgetText::withoutMnemonic(QString text)
{
    return text.remove(QLatin1Char('&'));
}

QString WidgetText::of(const QWidget *widget)
{
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    if (button && button->isCheckable())
        return ofCheck(button->isChecked());
    if (const auto *box = qobject_cast<const QComboBox *>(widget))
        return box->currentText();
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        return Qt::mightBeRichText(label->text())
                       ? QTextDocumentFragment::fromHtml(label->text()).toPlainText()
                       : label->text();
    }
    if (const auto *editor = qobject_cast<const QPlainTextEdit *>(widget))
        return editor->toPlainText();
    for (const char *property : {"value", "text"}) {
        const QVariant value = widget->property(property);
        if (value.isValid())
            return value.toString();
    }
    return QString();
}

QString WidgetText::ofItem(const QModelIndex &index)
{
    const QString text = index.data().toString();
    const QVariant check = index.data(Qt::CheckStateRole);
    return text.isEmpty() && check.isValid() ? ofCheck(check.toInt() == Qt::Checked) : text;
}
