#include "Script.h"
#include "ScriptCommand.h"
#include "testprogram.h"

#include <QtTest>

class tst_Script : public QObject {
    Q_OBJECT

private slots:
    void words_data();
    void words();
    void openQuote();
    void headSetupAndLines();
    void headEndsWithTheFirstAction();
    void joinedWordsAreSplitAgain();
    void scenarioBesideTheScript();
    void rejected_data();
    void rejected();
    void unreadableFile();
    void everyCommandIsFoundByItsName();
};

void tst_Script::words_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("words");

    QTest::newRow("empty") << "" << QStringList{};
    QTest::newRow("blanks") << "  a \t b  " << QStringList{"a", "b"};
    QTest::newRow("quoted") << "click \"a b\" c" << QStringList{"click", "a b", "c"};
    QTest::newRow("empty word") << "set x \"\"" << QStringList{"set", "x", ""};
    QTest::newRow("quote inside") << R"("say \"hi\"")" << QStringList{"say \"hi\""};
    QTest::newRow("backslash") << R"("a\\b")" << QStringList{"a\\b"};
    QTest::newRow("line break") << R"("a\nb")" << QStringList{"a\nb"};
    QTest::newRow("backslash outside quotes") << R"(a\nb)" << QStringList{"a\\nb"};
    QTest::newRow("hash in a word") << "a #b" << QStringList{"a", "#b"};
}

void tst_Script::words()
{
    QFETCH(QString, line);
    QFETCH(QStringList, words);
    QStringList split;
    QVERIFY(Script::split(line, &split));
    QCOMPARE(split, words);
}

void tst_Script::openQuote()
{
    QStringList split;
    QVERIFY(!Script::split(QStringLiteral("click \"a b"), &split));
    QVERIFY(!Script::split(QStringLiteral("click \"a b\\\""), &split));
}

void tst_Script::headSetupAndLines()
{
    Script script;
    QString error;
    QVERIFY2(Script::parse("# comment\n"
                           "scenario locked\n"
                           "tell \"First.\"\n"
                           "tell \"Second.\"\n"
                           "latency 70\n"
                           "home unwritable\n"
                           "language de\n"
                           "palette dark\n"
                           "\n"
                           "fault \"* fail\"\n"
                           "begin\n"
                           "menu Entry\n"
                           "   # indented comment\n"
                           "expect no-window\n",
                           QStringLiteral("s"), &script, &error),
             qPrintable(error));
    QCOMPARE(script.scenario, QStringLiteral("locked"));
    QCOMPARE(script.telling, QStringList({"First.", "Second."}));
    QCOMPARE(script.latencyMs, 70);
    QVERIFY(script.unwritableHome);
    QCOMPARE(script.language, QStringLiteral("de"));
    QVERIFY(script.isDark);
    QCOMPARE(script.setup.size(), 1);
    QCOMPARE(script.setup.first().number, 10);
    QCOMPARE(script.lines.size(), 2);
    QCOMPARE(script.lines.at(0).words, QStringList({"menu", "Entry"}));
    QCOMPARE(script.lines.at(1).number, 14);
}

void tst_Script::headEndsWithTheFirstAction()
{
    Script script;
    QString error;
    QVERIFY(!Script::parse("mark\nscenario locked\n", QStringLiteral("s"), &script, &error));
    QCOMPARE(error,
             QStringLiteral("s:2: expected an action or an expectation, found \"scenario\""));
}

void tst_Script::joinedWordsAreSplitAgain()
{
    const QStringList words = {"type", "table", "",       "two words", "say \"hi\"",
                               "a\\b", "a\nb",  "\ttab ", "#x"};
    QStringList split;
    QVERIFY(Script::split(Script::joined(words), &split));
    QCOMPARE(split, words);
}

void tst_Script::scenarioBesideTheScript()
{
    const QTemporaryDir dir;
    for (const char *name : {"s.script", "own.json"}) {
        QFile file(dir.filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("scenario own.json\n");
    }
    Script script;
    QString error;
    QVERIFY2(Script::load(dir.filePath(QStringLiteral("s.script")), &script, &error),
             qPrintable(error));
    QCOMPARE(script.scenario, dir.filePath(QStringLiteral("own.json")));
}

void tst_Script::rejected_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");

    QTest::newRow("unknown action") << QByteArray("mark\njump 3\n")
                                    << "s:2: expected an action or an expectation, found \"jump\"";
    QTest::newRow("unknown expectation")
            << QByteArray("expect luck\n")
            << "s:1: expected an action or an expectation, found \"expect luck\"";
    QTest::newRow("mistyped action") << QByteArray("clik x\n")
                                     << "s:1: expected an action or an expectation, found "
                                        "\"clik\"; did you mean \"click\"?";
    QTest::newRow("mistyped expectation")
            << QByteArray("expect stat x\n")
            << "s:1: expected an action or an expectation, found \"expect stat\"; did you mean "
               "\"state\"?";
    QTest::newRow("expectation without kind")
            << QByteArray("expect\n")
            << "s:1: expected an action or an expectation, found \"expect\"";
    QTest::newRow("too few arguments")
            << QByteArray("choose box\n")
            << "s:1: expected \"choose COMBOBOX ENTRY\", found 1 arguments";
    QTest::newRow("too many arguments")
            << QByteArray("click a b\n") << "s:1: expected \"click WIDGET\", found 2 arguments";
    QTest::newRow("open quote") << QByteArray("click \"a\n")
                                << "s:1: expected a closing quote, found the end of the line";
}

void tst_Script::rejected()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    Script script;
    QString error;
    QVERIFY(!Script::parse(text, QStringLiteral("s"), &script, &error));
    QCOMPARE(error, message);
}

void tst_Script::unreadableFile()
{
    Script script;
    QString error;
    QVERIFY(!Script::load(QStringLiteral("/no/such/file.script"), &script, &error));
    QVERIFY2(error.startsWith(QStringLiteral("/no/such/file.script: the script cannot be read: ")),
             qPrintable(error));
}

void tst_Script::everyCommandIsFoundByItsName()
{
    QSet<QString> names;
    const QVector<ScriptCommand> all = ScriptCommands::actions() + ScriptCommands::expectations();
    for (const ScriptCommand &command : all) {
        const QStringList words = command.word.split(QLatin1Char(' '));
        int length = 0;
        const ScriptCommand *found = ScriptCommands::find(words, &length);
        QVERIFY2(found, qPrintable(command.word));
        QCOMPARE(found->word, command.word);
        QCOMPARE(length, words.size());
        QVERIFY2(command.run, qPrintable(command.word));
        QVERIFY2(command.minimum <= command.maximum, qPrintable(command.word));
        names.insert(command.word);
    }
    QCOMPARE(names.size(), all.size());
}

TRACKING_TEST_GUILESS_MAIN(tst_Script)
#include "tst_script.moc"
