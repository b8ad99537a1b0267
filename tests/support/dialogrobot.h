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
 * Acts as the user of modal windows. Expectations apply in the order in which they were added. A
 * message box that is not expected is closed and fails the test. An expected box that does not open
 * fails the test in verify(). A question whose default button accepts it fails the test, too.
 */
class DialogRobot : public QObject {
    Q_OBJECT

public:
    explicit DialogRobot(QObject *parent = nullptr);
    ~DialogRobot() override;

    /**
     * Expects that the next box has this title and text; an informative text follows the text after
     * a newline.
     */
    void expectBox(const QString &title, const QString &text, QMessageBox::StandardButton answer);
    /** The same; `meanwhile` runs while the box is shown, before it is answered. */
    void expectBox(const QString &title, const QString &text, QMessageBox::StandardButton answer,
                   std::function<void()> meanwhile);
    /**
     * Expects that the next modal window other than a message box has this class name or object
     * name. `drive` is called with the window when it is shown. If the window is still open after
     * `drive`, it is closed with Escape.
     */
    void expectDialog(const QString &name, std::function<void(QWidget *)> drive);

    /** Title and text of every box so far, "title|text". */
    QStringList boxes() const { return m_boxes; }
    /** Fails the running test when an expected window did not open. */
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
