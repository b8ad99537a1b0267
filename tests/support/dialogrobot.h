#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QQueue>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>

class QDialog;

/**
 * Plays the user in front of modal windows. Expectations are served in the order in which they were
 * added. A message box that is not expected is closed and fails the test; one that never comes
 * fails it in verify(). A question whose default button accepts it fails the test, too.
 */
class DialogRobot : public QObject {
    Q_OBJECT

public:
    explicit DialogRobot(QObject *parent = nullptr);
    ~DialogRobot() override;

    /** The next box has this title and text (text, then informative text after a newline if any).
     */
    void expectBox(const QString &title, const QString &text, QMessageBox::StandardButton answer);
    /** The next box as above; `meanwhile` runs while it is shown, before it is answered. */
    void expectBox(const QString &title, const QString &text, QMessageBox::StandardButton answer,
                   std::function<void()> meanwhile);
    /**
     * The next modal window that is no message box has this class name or object name; `drive` is
     * run with it once it is shown. When `drive` returns with the window still open, the window is
     * closed with Escape.
     */
    void expectDialog(const QString &name, std::function<void(QWidget *)> drive);

    /** Title and text of every box so far, "title|text". */
    QStringList boxes() const { return m_boxes; }
    /** Fails the running test when something expected did not come. */
    void verify();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Expectation {
        bool isBox = false;
        QString name; ///< title of a box, class or object name of a dialog
        QString text;
        QMessageBox::StandardButton answer = QMessageBox::NoButton;
        std::function<void(QWidget *)> drive;
        std::function<void()> meanwhile;
        QString described() const;
    };

    void serve(QDialog *window);
    void serveBox(QMessageBox *box);
    void serveDialog(QDialog *dialog);
    void giveUp();

    QQueue<Expectation> m_expected;
    QStringList m_boxes;
    QTimer m_watchdog;
};
