#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

/**
 * The window of a substitute module: it shows the request, and has a button that carries it out and
 * a button that closes the window. Not modal; deletes itself when closed.
 */
class SubstituteDialog : public QDialog {
    Q_OBJECT

public:
    /**
     * @param module     name of the substituted module; the object name is "substitute_" and this
     *   name
     * @param request    the text of the request, shown as it came
     * @param effect     what the button does, or why it can do nothing
     * @param applicable true when the button can do something
     */
    SubstituteDialog(const QString &module, const QString &request, const QString &effect,
                     bool applicable, QWidget *parent = nullptr);

    /** Shows the result of the button. */
    void setResult(const QString &text);

signals:
    void applied();
    /** The user has closed the dialog. */
    void closed();

private:
    QLabel *m_result;
};
