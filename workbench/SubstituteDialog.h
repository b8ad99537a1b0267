#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

/**
 * The window of a substitute module: what was asked, a button that carries it out, a button that
 * closes. Not modal; deletes itself when closed.
 */
class SubstituteDialog : public QDialog {
    Q_OBJECT

public:
    /**
     * @param module    name of the substituted module; the object name is "substitute_" and this
     * @param request   the text of the request, shown as it came
     * @param effect    what applying does, or why nothing can be applied
     * @param applicable whether there is something to apply
     */
    SubstituteDialog(const QString &module, const QString &request, const QString &effect,
                     bool applicable, QWidget *parent = nullptr);

    /** Shows what applying did. */
    void setResult(const QString &text);

signals:
    void applied();
    /** The dialog was closed by the user. */
    void closed();

private:
    QLabel *m_result;
};
