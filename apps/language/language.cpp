#include "language.h"

#include <QCommandLineOption>
#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTranslator>

namespace coagulation {

namespace {

const QLocale chinese(QLocale::Chinese, QLocale::SimplifiedChineseScript, QLocale::China);

// "en_GB.UTF-8", "en", "zh_CN" -> that locale; "C" and "POSIX" -> the C locale.
QLocale localeOf(QString name)
{
    name = name.section(QLatin1Char('.'), 0, 0).section(QLatin1Char('@'), 0, 0);
    if (name.isEmpty() || name == QLatin1String("C") || name == QLatin1String("POSIX"))
        return QLocale::c();
    return QLocale(name);
}

bool translated(const QLocale& locale)
{
    return locale.language() == QLocale::English || locale.language() == QLocale::Chinese;
}

// A program that says Chinese always means Simplified Chinese as printed in China.
QLocale normalized(const QLocale& locale)
{
    return locale.language() == QLocale::Chinese ? chinese : locale;
}

bool load(const QLocale& locale, const QString& name, const QString& folder)
{
    auto* translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(locale, name, QStringLiteral("_"), folder))
        return QCoreApplication::installTranslator(translator);
    delete translator;
    return false;
}

} // namespace

QLocale Language::choose(const QString& name, bool* ok)
{
    if (ok)
        *ok = true;
    if (!name.isEmpty()) {
        const QLocale locale = localeOf(name);
        if (translated(locale))
            return normalized(locale);
        if (ok)
            *ok = false;
        return chinese;
    }
    // LANGUAGE is a list of preferences; the first one we translate to wins.
    QStringList candidates = qEnvironmentVariable("LANGUAGE").split(QLatin1Char(':'), Qt::SkipEmptyParts);
    candidates << qEnvironmentVariable("LC_ALL") << qEnvironmentVariable("LANG");
    for (const QString& candidate : std::as_const(candidates)) {
        const QLocale locale = localeOf(candidate);
        if (translated(locale))
            return normalized(locale);
    }
    return chinese;
}

QString Language::fromArguments(const QStringList& arguments)
{
    const QString option = QStringLiteral("--language");
    for (int i = 1; i < arguments.size(); ++i) {
        if (arguments.at(i) == option)
            return arguments.value(i + 1);
        if (arguments.at(i).startsWith(option + QLatin1Char('=')))
            return arguments.at(i).mid(option.size() + 1);
    }
    return {};
}

QCommandLineOption Language::option()
{
    return QCommandLineOption(
        QStringLiteral("language"),
        QCoreApplication::translate("coagulation::Language", "界面和报告的语言：zh_CN（默认）或 en"),
        QStringLiteral("name"));
}

QString Language::translationsFolder()
{
    const QString override = qEnvironmentVariable("COAGULATION_TRANSLATIONS");
    if (!override.isEmpty())
        return override;
    return QDir::cleanPath(QCoreApplication::applicationDirPath() +
                           QStringLiteral("/../share/coagulation/translations"));
}

bool Language::install(const QLocale& locale)
{
    QLocale::setDefault(locale);
    // The module's texts are Chinese already; Qt's own dialogs need their translation in every
    // language, but a program without it still works.
    const bool ok = locale.language() == QLocale::Chinese ||
                    load(locale, QStringLiteral("coagulation"), translationsFolder());
    load(locale, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    return ok;
}

bool Language::setUp(const QString& name, QString* errorString)
{
    bool known = true;
    const QLocale locale = choose(name, &known);
    if (!known) {
        *errorString = QStringLiteral("--language '%1' is not one of zh_CN and en").arg(name);
        return false;
    }
    if (!install(locale)) {
        *errorString = QStringLiteral("The %1 translation is missing from %2")
                           .arg(locale.name(), QDir::toNativeSeparators(translationsFolder()));
        return false;
    }
    return true;
}

} // namespace coagulation
