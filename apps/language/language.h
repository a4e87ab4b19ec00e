#pragma once

#include <QLocale>
#include <QString>

class QCommandLineOption;

namespace coagulation {

// The language a program speaks. Chinese unless the user asks for a language we translate to,
// with --language or through LANGUAGE, LC_ALL or LANG; dates and numbers follow the same locale.
class Language
{
public:
    // The locale for a --language value, or for the environment when `name` is empty.
    // An unknown `name` gives Chinese and sets *ok to false.
    static QLocale choose(const QString& name, bool* ok = nullptr);
    // The value of "--language NAME" or "--language=NAME" among raw arguments, before any parser.
    static QString fromArguments(const QStringList& arguments);
    // The option for a QCommandLineParser, so that --help lists it.
    static QCommandLineOption option();

    // Makes `locale` the default and installs the module's and Qt's translations for it on the
    // running application; Chinese needs none. False when a translation file is missing.
    static bool install(const QLocale& locale);

    // choose() and install() for a program's start: false, with a message in English (the one language
    // every user of ours reads when the translation itself is what fails), for an unknown name or a
    // missing translation.
    static bool setUp(const QString& name, QString* errorString);

    // Where the module's .qm files are: beside the program's share folder, else $COAGULATION_TRANSLATIONS.
    static QString translationsFolder();
};

} // namespace coagulation
