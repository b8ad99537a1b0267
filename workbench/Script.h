#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

/**
 * A list of actions and expectations, one on each line. Words are separated by blanks; a word with
 * blanks is written in double quotes, in which \" and \\ and \n are the usual escapes. A line that
 * begins with # is a comment; empty lines are ignored.
 *
 * Lines before the first action may name the scenario ("scenario NAME"), say in sentences what a
 * person should try ("tell TEXT"), give each operation a duration that a person feels ("latency
 * MS"), make the preferences' folder unwritable ("home unwritable"), and show the module in another
 * language ("language de") or in dark colours ("palette dark"). Actions before a line "begin"
 * prepare the demonstration: they are carried out before a person takes over.
 */
struct Script {
    struct Line {
        int number = 0; ///< one-based
        QStringList words;
    };

    QString name;        ///< file name as given
    QString scenario;    ///< empty: the default scenario
    QStringList telling; ///< what a person should try
    int latencyMs = 0;   ///< used only when a person watches
    bool unwritableHome = false;
    QString language; ///< language of the module's texts, for example "de"; empty: English
    bool isDark = false;
    QVector<Line> setup;
    QVector<Line> lines;

    /** Reads a script; false with *error "file:line: expected ..., found ...". */
    static bool parse(const QByteArray &text, const QString &name, Script *script, QString *error);
    static bool load(const QString &file, Script *script, QString *error);
    /** Splits one line into words; false when a quote is not closed. */
    static bool split(const QString &line, QStringList *words);
    /** The words as a line that split() can take apart again. */
    static QString joined(const QStringList &words);
};
