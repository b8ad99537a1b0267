#include "Dress.h"

#include "qtportability.h"

#include <QApplication>
#include <QFileInfo>
#include <QPalette>
#include <QStyle>
#include <QTranslator>

namespace {

QPalette darkPalette()
{
    const QColor window(60, 60, 60);
    QPalette palette(window);
    palette.setColor(QPalette::Base, QColor(28, 28, 28));
    palette.setColor(QPalette::AlternateBase, QColor(36, 36, 36));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(140, 140, 140));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::HighlightedText, Qt::black);
    return palette;
}

} // namespace

Dress::Dress() = default;

Dress::~Dress()
{
    if (m_isDark)
        QApplication::setPalette(QApplication::style()->standardPalette());
}

void Dress::darken()
{
    m_isDark = true;
    QApplication::setPalette(darkPalette());
}

bool Dress::translate(const QString &language, const QString &pluginFile, QString *error)
{
    const QString file = QStringLiteral("%1/translations/trackingsettings_%2.qm")
                                 .arg(QFileInfo(pluginFile).path(), language);
    auto module = std::make_unique<QTranslator>();
    if (!module->load(file)) {
        *error = QStringLiteral("language %1: expected the translation %2").arg(language, file);
        return false;
    }
    QCoreApplication::installTranslator(module.get());
    m_translators.push_back(std::move(module));
    auto toolkit = std::make_unique<QTranslator>();
    if (toolkit->load(QStringLiteral("qtbase_") + language,
                      LIBRARY_PATH(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(toolkit.get());
        m_translators.push_back(std::move(toolkit));
    }
    return true;
}
