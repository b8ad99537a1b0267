#include "Suggestion.h"

#include <QVector>

#include <numeric>

namespace {

/** How many letters have to be inserted, removed or replaced to turn one word into the other. */
int distance(const QString &left, const QString &right)
{
    QVector<int> row(right.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < left.size(); ++i) {
        int diagonal = row.at(0);
        row[0] = i + 1;
        for (int k = 0; k < right.size(); ++k) {
            const int replaced = diagonal + (left.at(i).toLower() == right.at(k).toLower() ? 0 : 1);
            diagonal = row.at(k + 1);
            row[k + 1] = qMin(replaced, 1 + qMin(row.at(k), diagonal));
        }
    }
    return row.last();
}

} // namespace

QString Suggestion::forWord(const QString &word, const QStringList &candidates)
{
    constexpr int lettersPerMistake = 3;
    int least = word.size() / lettersPerMistake + 1;
    QString nearest;
    for (const QString &candidate : candidates) {
        const int found = distance(word, candidate);
        if (found < least) {
            least = found;
            nearest = candidate;
        }
    }
    return nearest.isEmpty() ? QString() : QStringLiteral("; did you mean \"%1\"?").arg(nearest);
}
