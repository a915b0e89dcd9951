// The windows in the desktop's language. The core holds every caption and message in English
// (the station files never depend on the language); the view translates at its edge, here, with
// Qt's translation system: the catalogue lumacfg_<language>.qm (built from translations/*.ts,
// embedded in the program) and Qt's own qtbase_<language>.qm for its standard buttons and
// dialogs. Every text is looked up in the context "lumacfg", its English as the source text.
#pragma once

#include <QChar>
#include <QLocale>
#include <QString>
#include <QStringList>

namespace lumacfg::ui {

// The context of every source text of the catalogue.
inline constexpr const char* kTranslationContext = "lumacfg";

// The language the windows take from a desktop's languages in order of preference
// (QLocale::uiLanguages(): "de-DE", "ja", "en-US"): the first one that is English or that
// `shipped` holds ("de", "ja"); "en" when none is.
QString ChosenLanguage(const QStringList& uiLanguages, const QStringList& shipped);

// The languages the program ships a catalogue for.
QStringList ShippedLanguages();

// Installs the catalogues of the language chosen from `locale`'s languages (the program's and
// Qt's own), in place of those installed before; English installs none. Returns the language.
QString UseLanguage(const QLocale& locale);

// A text as the windows show it: its translation when the catalogue holds it whole; else, when
// it is composed from a message template with variable parts ("cannot read %1: %2"), the
// template's translation with its parts in place (a part is a value, a path, a reason or a name,
// and stays as it is unless it is composed from a template in its turn); else each of its
// lines so; else the text itself.
QString Translated(const QString& text);

// A caption as a button, check box, label or frame shows it, with `letter` marked as its
// mnemonic (none when null): the catalogue's translation of the caption WITH its marker
// ("&Save" -> "&Speichern", "保存(&S)"), so each language marks its own letter. A caption whose
// marked form the catalogue does not hold (its letter chosen anew) takes the translation of the
// caption alone and marks the same letter in it, or adds it as "(&L)" when the translation has
// no such letter.
QString TranslatedCaption(const QString& caption, QChar letter);

}  // namespace lumacfg::ui
