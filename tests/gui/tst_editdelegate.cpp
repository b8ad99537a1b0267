#include "dialogtest.h"
#include "editdelegate.h"

#include <QClipboard>
#include <QLineEdit>
#include <QTableWidget>
#include <QValidator>

#include <memory>

class tst_editdelegate : public DialogTest {
    Q_OBJECT

private slots:
    void editorIsALineWithTheCellsText();
    void typing_data();
    void typing();
    void pastedTextWithAForbiddenSignIsRefusedWhole();
    void escapeKeepsTheName();
    void nameWithAForbiddenSignCanOnlyBeReplaced();
    void invalidTextIsNotWritten();
    void otherEditorsAreLeftAlone();
    void cellThatChangesUnderTheEditor();

private:
    /** A table with one name, which is edited through the delegate. */
    std::unique_ptr<QTableWidget> table(const QString &name)
    {
        auto shown = std::make_unique<QTableWidget>(1, 1);
        shown->setItem(0, 0, new QTableWidgetItem(name));
        shown->setItemDelegateForColumn(0, new EditDelegate(shown.get()));
        shown->show();
        return shown;
    }
    static QLineEdit *startEditing(QTableWidget *shown)
    {
        Drive::doubleClickCell(shown, 0, 0);
        auto *editor = shown->viewport()->findChild<QLineEdit *>();
        if (!editor)
            qFatal("the cell opens no editor");
        return editor;
    }
};

void tst_editdelegate::editorIsALineWithTheCellsText()
{
    const auto shown = table(QStringLiteral("Left hand"));
    EditDelegate delegate;
    const std::unique_ptr<QWidget> widget(
            delegate.createEditor(nullptr, QStyleOptionViewItem(), shown->model()->index(0, 0)));
    auto *line = qobject_cast<QLineEdit *>(widget.get());
    QVERIFY(line);
    delegate.setEditorData(line, shown->model()->index(0, 0));
    QCOMPARE(line->text(), QStringLiteral("Left hand"));
    QVERIFY(line->validator());
    line->setText(QStringLiteral("Right"));
    delegate.setModelData(line, shown->model(), shown->model()->index(0, 0));
    QCOMPARE(Drive::cell(shown.get(), 0, 0), QStringLiteral("Right"));
}

void tst_editdelegate::typing_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("name");
    QTest::newRow("every letter") << "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                  << "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    QTest::newRow("digits") << "0123456789"
                            << "0123456789";
    QTest::newRow("signs and blank") << "_-+=.,;:/ x"
                                     << "_-+=.,;:/ x";
    QTest::newRow("nothing") << ""
                             << "";
    for (const char forbidden : QByteArray("\"'\\%&|<>()[]{}!?*#$@^~`")) {
        QTest::newRow(QByteArray("forbidden ").append(forbidden).constData())
                << QStringLiteral("a%1b").arg(QLatin1Char(forbidden)) << "ab";
    }
    QTest::newRow("umlaut") << QString::fromUtf8("a\xc3\xa4z") << "az";
}

void tst_editdelegate::typing()
{
    QFETCH(QString, typed);
    QFETCH(QString, name);
    const auto shown = table(QStringLiteral("Head"));
    QLineEdit *editor = startEditing(shown.get());
    editor->selectAll();
    QTest::keyClick(editor, Qt::Key_Delete);
    for (const QChar &sign : typed) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(sign));
        QApplication::sendEvent(editor, &press);
    }
    QTest::keyClick(editor, Qt::Key_Return);
    Drive::settle();
    QCOMPARE(Drive::cell(shown.get(), 0, 0), name);
}

void tst_editdelegate::pastedTextWithAForbiddenSignIsRefusedWhole()
{
    const auto shown = table(QStringLiteral("Head"));
    QLineEdit *editor = startEditing(shown.get());
    for (const char *pasted : {"good\"bad", "two\nlines"}) {
        editor->end(false);
        QApplication::clipboard()->setText(QLatin1String(pasted));
        editor->paste();
        QCOMPARE(editor->text(), QStringLiteral("Head"));
    }
    QTest::keyClick(editor, Qt::Key_Escape);
}

void tst_editdelegate::escapeKeepsTheName()
{
    const auto shown = table(QStringLiteral("Head"));
    QLineEdit *editor = startEditing(shown.get());
    QTest::keyClicks(editor, QStringLiteral("Other"));
    QTest::keyClick(editor, Qt::Key_Escape);
    Drive::settle();
    QCOMPARE(Drive::cell(shown.get(), 0, 0), QStringLiteral("Head"));
}

void tst_editdelegate::nameWithAForbiddenSignCanOnlyBeReplaced()
{
    const auto shown = table(QStringLiteral("Bob's \"cap\""));
    QLineEdit *editor = startEditing(shown.get());
    QCOMPARE(editor->text(), QStringLiteral("Bob's \"cap\""));
    QTest::keyClick(editor, Qt::Key_Return);
    Drive::settle();
    QCOMPARE(Drive::cell(shown.get(), 0, 0), QStringLiteral("Bob's \"cap\""));
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("Cap"));
    QTest::keyClick(editor, Qt::Key_Return);
    Drive::settle();
    QCOMPARE(Drive::cell(shown.get(), 0, 0), QStringLiteral("Cap"));
}

void tst_editdelegate::invalidTextIsNotWritten()
{
    const auto shown = table(QStringLiteral("Head"));
    EditDelegate delegate;
    QLineEdit line;
    delegate.setEditorData(&line, shown->model()->index(0, 0));
    line.setText(QStringLiteral("a\"b"));
    delegate.setModelData(&line, shown->model(), shown->model()->index(0, 0));
    QCOMPARE(Drive::cell(shown.get(), 0, 0), QStringLiteral("Head"));
}

void tst_editdelegate::otherEditorsAreLeftAlone()
{
    const auto shown = table(QStringLiteral("Head"));
    EditDelegate delegate;
    QWidget other;
    delegate.setEditorData(&other, shown->model()->index(0, 0));
    delegate.setModelData(&other, shown->model(), shown->model()->index(0, 0));
    QCOMPARE(Drive::cell(shown.get(), 0, 0), QStringLiteral("Head"));
}

void tst_editdelegate::cellThatChangesUnderTheEditor()
{
    const auto shown = table(QStringLiteral("Head"));
    QLineEdit *editor = startEditing(shown.get());
    const QValidator *validator = editor->validator();
    shown->item(0, 0)->setText(QStringLiteral("Cap"));
    QCOMPARE(editor->text(), QStringLiteral("Cap"));
    QCOMPARE(editor->validator(), validator);
    QTest::keyClick(editor, Qt::Key_Escape);
}

TRACKING_TEST_MAIN(tst_editdelegate)
#include "tst_editdelegate.moc"
