#include "ui/dialog/qt/translation.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QTranslator>
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "ui/dialog/qt/dialog_binding.h"

namespace lumacfg::ui {
namespace {

// Where the build embeds the program's catalogues.
constexpr const char* kCatalogueFolder = ":/i18n";

// The messages the core composes with variable parts, as templates: each %n stands for a part
// (a path, a reason, a number, a name). Keep them as the core writes them.
constexpr std::array kMessageTemplates = {
    QT_TRANSLATE_NOOP("lumacfg", "cannot read %1: %2"),
    QT_TRANSLATE_NOOP("lumacfg", "cannot write %1: %2"),
    QT_TRANSLATE_NOOP("lumacfg", "Could not get OPAL Application Name. - %1"),
    QT_TRANSLATE_NOOP("lumacfg", "Could not add device for %1"),
    QT_TRANSLATE_NOOP("lumacfg", "The user name or password is wrong (%1). Tries left: %2."),
    QT_TRANSLATE_NOOP("lumacfg", "The loader refuses this entry: %1"),
    QT_TRANSLATE_NOOP("lumacfg", "On the custom trays:\n%1"),
    QT_TRANSLATE_NOOP("lumacfg", "%1: fits"),
    QT_TRANSLATE_NOOP("lumacfg", "%1: too wide: %2 across, RACK_X_DIST %3"),
    QT_TRANSLATE_NOOP("lumacfg", "%1: too long: %2 deep, RACK_Y_DIST %3"),
    QT_TRANSLATE_NOOP("lumacfg", "Rack ID &%1:"),
    // The custom entries' key labels: the key and what the loader accepts for it.
    QT_TRANSLATE_NOOP("lumacfg", "%1 (1 to %2 characters):"),
    QT_TRANSLATE_NOOP("lumacfg", "%1 (any number but %2):"),
    QT_TRANSLATE_NOOP("lumacfg", "%1 (a rack):"),
    // The first start's message of the string table, completed with the missing path.
    QT_TRANSLATE_NOOP("lumacfg",
                      "No station of the data system was found (%1); choose the folder the data "
                      "system is installed in, the one that holds LUMAEXE or where LUMAEXE may be "
                      "made."),
    // Its part: the file that names no station, and why.
    QT_TRANSLATE_NOOP("lumacfg",
                      "%1: No such file or directory (the registry store names the data "
                      "system's folder; LUMACFG_PROGRAM_DIR is not set)"),
    QT_TRANSLATE_NOOP("lumacfg",
                      "%1: it names no data system folder (no \"Path\" under "
                      "HKEY_LOCAL_MACHINE\\%2)"),
    QT_TRANSLATE_NOOP("lumacfg",
                      "%1: %2 (the program directory of the data system folder \"%3\" that %4 "
                      "names)"),
    QT_TRANSLATE_NOOP("lumacfg",
                      "%1: its data system folder \"%2\" is not a full path (one that starts "
                      "with \"/\")"),
    // The custom entries' editors' refusals: a value, a name, a default rack, a deletion, the
    // damaged list of a kind, no free id.
    QT_TRANSLATE_NOOP("lumacfg", "%1: %2 is outside the accepted range %3."),
    QT_TRANSLATE_NOOP("lumacfg", "%1: %2 with %3 %4 makes %5 vials; the accepted range is %6."),
    QT_TRANSLATE_NOOP("lumacfg", "%1: %2 is the name of a standard tray."),
    QT_TRANSLATE_NOOP("lumacfg", "%1: %2 is the name of a standard rack."),
    QT_TRANSLATE_NOOP("lumacfg", "%1: %2 is already the name of %3."),
    QT_TRANSLATE_NOOP("lumacfg", "%1: %2 is not a rack; accepted are %3 and the custom racks."),
    QT_TRANSLATE_NOOP("lumacfg", "A tray has no key %1."),
    QT_TRANSLATE_NOOP("lumacfg", "A rack has no key %1."),
    QT_TRANSLATE_NOOP("lumacfg", "%1 is in use: %2 holds it."),
    QT_TRANSLATE_NOOP("lumacfg", "%1 may be in use by a tray the damaged list hides: %2."),
    QT_TRANSLATE_NOOP("lumacfg", "%1 does not load: %2."),
    QT_TRANSLATE_NOOP("lumacfg",
                      "The tray list of custrack.ini is damaged: %1. Entries it names may be "
                      "missing; New, Copy and Delete of trays are refused until it is repaired "
                      "in the file."),
    QT_TRANSLATE_NOOP("lumacfg",
                      "The rack list of custrack.ini is damaged: %1. Entries it names may be "
                      "missing; New, Copy and Delete of racks are refused until it is repaired "
                      "in the file."),
    QT_TRANSLATE_NOOP("lumacfg", "No id is free: custom trays take the ids %1 to %2."),
    QT_TRANSLATE_NOOP("lumacfg", "No id is free: custom racks take the ids %1 to %2."),
    QT_TRANSLATE_NOOP("lumacfg", "a number up to %1"),
    // A custom entry in the list of its editor, with the loader's verdict; the verdict's fault
    // names a key, the value it holds and what the loader accepts for it. Kept after the
    // templates above, which a tray's or rack's name could otherwise be taken into.
    QT_TRANSLATE_NOOP("lumacfg", "%1 (%2): ok"),
    QT_TRANSLATE_NOOP("lumacfg", "%1 (%2): not loaded: %3 before it fails"),
    QT_TRANSLATE_NOOP("lumacfg", "%1 (%2): %3"),
    QT_TRANSLATE_NOOP("lumacfg", "%1=%2 (accepted: %3)"),
    QT_TRANSLATE_NOOP("lumacfg", "%1 missing (accepted: %2)"),
    QT_TRANSLATE_NOOP("lumacfg", "1 to %1 characters"),
    QT_TRANSLATE_NOOP("lumacfg", "any number but %1"),
    QT_TRANSLATE_NOOP("lumacfg", "VIAL_X_NUM times VIAL_Y_NUM at most %1"),
    QT_TRANSLATE_NOOP("lumacfg", "a number"),
};

struct MessageTemplate {
    QString source;
    QRegularExpression pattern;  // the whole text, each %n a captured part
};

MessageTemplate TemplateOf(const QString& source) {
    QString pattern = QRegularExpression::escape(source);
    static const QRegularExpression escapedPlaceholder(QStringLiteral(R"(\\%[1-9])"));
    pattern.replace(escapedPlaceholder, QStringLiteral("(.+?)"));
    return {source, QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                                       QRegularExpression::DotMatchesEverythingOption)};
}

const std::vector<MessageTemplate>& MessageTemplates() {
    static const std::vector<MessageTemplate> templates = [] {
        std::vector<MessageTemplate> all;
        for (const char* source : kMessageTemplates)
            all.push_back(TemplateOf(QString::fromUtf8(source)));
        return all;
    }();
    return templates;
}

// The catalogue's translation of `source`, or nothing when the catalogue does not hold it.
std::optional<QString> Lookup(const QString& source) {
    if (source.isEmpty()) return std::nullopt;
    const QByteArray key = source.toUtf8();
    QString found = QCoreApplication::translate(kTranslationContext, key.constData());
    if (found == source) return std::nullopt;
    return found;
}

QString PartShown(const QString& part);

// `translated` with each %n replaced by the n-th part as shown.
QString Filled(const QString& translated, const QRegularExpressionMatch& parts) {
    static const QRegularExpression placeholder(QStringLiteral("%([1-9])"));
    QString text;
    qsizetype from = 0;
    for (const QRegularExpressionMatch& at : placeholder.globalMatch(translated)) {
        text += translated.mid(from, at.capturedStart() - from);
        text += PartShown(parts.captured(at.captured(1).toInt()));
        from = at.capturedEnd();
    }
    return text + translated.mid(from);
}

std::optional<QString> TranslatedTemplate(const QString& text) {
    for (const MessageTemplate& message : MessageTemplates()) {
        const QRegularExpressionMatch parts = message.pattern.match(text);
        if (!parts.hasMatch()) continue;
        // A template the same in every language ("%1 (%2): %3") is there for its parts.
        return Filled(Lookup(message.source).value_or(message.source), parts);
    }
    return std::nullopt;
}

// A line at a time, for a text of several lines.
QString EachLine(const QString& text, QString (*shown)(const QString&)) {
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString& line : lines) line = shown(line);
    return lines.join(QLatin1Char('\n'));
}

// A variable part of a composed message is a value (a path, a reason, a name) and stays as it
// is, even where it reads like a caption; only a part composed in its turn (the lines of a
// list of failures) is translated, template by template.
QString PartShown(const QString& part) {
    if (std::optional<QString> composed = TranslatedTemplate(part)) return *composed;
    if (part.contains(QLatin1Char('\n'))) return EachLine(part, PartShown);
    return part;
}

QString Escaped(QString caption) {
    return caption.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

// The program's catalogues and Qt's own, as installed now.
std::array<std::unique_ptr<QTranslator>, 2>& Installed() {
    static std::array<std::unique_ptr<QTranslator>, 2> installed;
    return installed;
}

}  // namespace

QString ChosenLanguage(const QStringList& uiLanguages, const QStringList& shipped) {
    for (const QString& tag : uiLanguages) {
        const QString language =
            tag.section(QLatin1Char('-'), 0, 0).section(QLatin1Char('_'), 0, 0).toLower();
        if (language == QLatin1String("en") || shipped.contains(language)) return language;
    }
    return QStringLiteral("en");
}

QStringList ShippedLanguages() {
    QStringList languages;
    const QStringList files =
        QDir(QString::fromLatin1(kCatalogueFolder)).entryList({QStringLiteral("lumacfg_*.qm")});
    for (const QString& file : files)
        languages << file.mid(8, file.size() - 8 - 3);  // "lumacfg_" <language> ".qm"
    return languages;
}

QString UseLanguage(const QLocale& locale) {
    for (std::unique_ptr<QTranslator>& translator : Installed()) {
        if (translator) QCoreApplication::removeTranslator(translator.get());
        translator.reset();
    }
    const QString language = ChosenLanguage(locale.uiLanguages(), ShippedLanguages());
    if (language == QLatin1String("en")) return language;
    auto own = std::make_unique<QTranslator>();
    if (!own->load(QStringLiteral("lumacfg_") + language, QString::fromLatin1(kCatalogueFolder)))
        return QStringLiteral("en");
    QCoreApplication::installTranslator(own.get());
    Installed()[0] = std::move(own);
    auto qt = std::make_unique<QTranslator>();
    if (qt->load(QStringLiteral("qtbase_") + language,
                 QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(qt.get());
        Installed()[1] = std::move(qt);
    }
    return language;
}

QString Translated(const QString& text) {
    if (std::optional<QString> whole = Lookup(text)) return *whole;
    if (std::optional<QString> composed = TranslatedTemplate(text)) return *composed;
    if (text.contains(QLatin1Char('\n'))) return EachLine(text, Translated);
    return text;
}

QString TranslatedCaption(const QString& caption, QChar letter) {
    const QString marked = CaptionWithMnemonic(caption, letter);
    if (std::optional<QString> translated = Lookup(marked)) return *translated;
    if (letter.isNull()) return marked;
    const std::optional<QString> alone = Lookup(caption);
    if (!alone) return marked;
    if (alone->contains(letter, Qt::CaseInsensitive)) return CaptionWithMnemonic(*alone, letter);
    return Escaped(*alone) + QStringLiteral("(&") + letter.toUpper() + QLatin1Char(')');
}

}  // namespace lumacfg::ui
