#pragma once

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;
class QVBoxLayout;
class WorkbenchSession;

/**
 * Changes the controller as another connected program would, at any time and without the module.
 * Every action shows one line about what it did.
 */
class SecondClientPanel : public QWidget {
    Q_OBJECT

public:
    explicit SecondClientPanel(WorkbenchSession *session, QWidget *parent = nullptr);

private:
    void buildBodyGroup(QVBoxLayout *layout);
    void buildControllerGroup(QVBoxLayout *layout);
    void refreshTypes();
    void renameBody();
    void deleteBody();
    void changeCount();
    void switchConfiguration();
    void restart();
    /** The number of the chosen body; 0, and a line that says so, when there is none. */
    int chosenBody();

    WorkbenchSession *m_session;
    QComboBox *m_type = nullptr;
    QSpinBox *m_number = nullptr;
    QLineEdit *m_name = nullptr;
    QSpinBox *m_count = nullptr;
    QLineEdit *m_protocol = nullptr;
    QLabel *m_result = nullptr;
};
