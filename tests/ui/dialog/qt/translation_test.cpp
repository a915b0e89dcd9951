// The windows in the desktop's language: which language a desktop's settings choose, how a
// caption, a caption with its mnemonic and a composed message are translated at the view's edge
// while values stay as they are, and the catalogues as shipped: complete, every placeholder and
// mnemonic marker kept.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <iostream>

#include "platform/file_failures.h"
#include "racks/custrack_entries.h"
#include "resources/string_table.h"
#include "ui/dialog/qt/ansi_text.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/dialog/qt/dialog_widgets.h"
#include "ui/dialog/qt/translation.h"

namespace lumacfg::ui {
namespace {

class TranslationTest : public ::testing::Test {
  protected:
    void TearDown() override { UseLanguage(QLocale()); }  // the test program's language
};

TEST_F(TranslationTest, TheFirstPreferredLanguageThatIsShippedOrEnglishIsChosen) {
    const QStringList shipped{"de", "ja"};
    const struct {
        QStringList preferred;
        const char* chosen;
    } cases[] = {
        {{"de-DE", "de", "en"}, "de"},
        {{"ja-JP", "ja"}, "ja"},
        {{"fr-FR", "ja", "de"}, "ja"},
        {{"en-US", "de"}, "en"},
        {{"fr-FR", "fr"}, "en"},
        {{"C"}, "en"},
        {{}, "en"},
        {{"de_AT"}, "de"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ChosenLanguage(c.preferred, shipped), c.chosen)
            << c.preferred.join(',').toStdString();
    }
    EXPECT_EQ(ShippedLanguages(), shipped);  // the catalogues the build embeds
}

// Run in a child with the desktop's variables set (below): prints the language installed.
TEST_F(TranslationTest, PrintsTheDesktopLanguageInAChild) {
    if (!qEnvironmentVariableIsSet("LUMACFG_PRINT_DESKTOP_LANGUAGE")) GTEST_SKIP();
    std::cout << "desktop language: " << UseLanguage(QLocale::system()).toStdString() << '\n';
}

TEST_F(TranslationTest, TheDesktopsLanguageVariablesChooseTheLanguage) {
    const struct {
        QStringList variables;
        const char* chosen;
    } cases[] = {
        {{"LANG=de_DE.UTF-8"}, "de"},
        {{"LANG=ja_JP.UTF-8"}, "ja"},
        {{"LANG=C.UTF-8", "LANGUAGE=de"}, "de"},
        {{"LANG=ja_JP.UTF-8", "LC_MESSAGES=de_DE.UTF-8"}, "de"},
        {{"LANG=fr_FR.UTF-8", "LANGUAGE=fr:ja"}, "ja"},
        {{"LANG=de_DE.UTF-8", "LANGUAGE=en:de"}, "en"},
        {{"LANG=fr_FR.UTF-8"}, "en"},
        {{"LANG=C"}, "en"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.variables.join(' ').toStdString());
        QStringList environment = QProcess::systemEnvironment().filter(
            QRegularExpression(QStringLiteral("^(?!(LANG|LANGUAGE|LC_ALL|LC_MESSAGES)=)")));
        environment << c.variables << QStringLiteral("LUMACFG_PRINT_DESKTOP_LANGUAGE=1");
        QProcess child;
        child.setEnvironment(environment);
        child.setWorkingDirectory(QDir::tempPath());  // a test before may have left a removed one
        child.start(
            QCoreApplication::applicationFilePath(),
            {QStringLiteral("--gtest_filter=TranslationTest.PrintsTheDesktopLanguageInAChild")});
        ASSERT_TRUE(child.waitForFinished(30000));
        const QString output = QString::fromUtf8(child.readAllStandardOutput());
        const QRegularExpressionMatch printed =
            QRegularExpression(QStringLiteral("desktop language: (\\w+)")).match(output);
        ASSERT_TRUE(printed.hasMatch())
            << output.toStdString() << child.readAllStandardError().toStdString()
            << child.errorString().toStdString();
        EXPECT_EQ(printed.captured(1), c.chosen);
    }
}

TEST_F(TranslationTest, CaptionsAndComposedMessagesAreTranslatedAndValuesStay) {
    const std::string failures = platform::DescribeAll(
        {{platform::FileOperation::Read, "/srv/station/LUMAEXE/lumagen.ist", "Permission denied"},
         {platform::FileOperation::Write, "/srv/station/registry.reg", "Read-only file system"}});
    const struct {
        const char* language;
        QString text;
        QChar mnemonic;  // TranslatedCaption with this letter; null: Translated
        QString shown;
    } cases[] = {
        // Captions as they stand, and the core's messages found whole.
        {"de", "Prohibited Masses", {}, "Gesperrte Massen"},
        {"ja", "Autosampler:", {}, "オートサンプラー:"},
        {"de",
         "Invalid rack is specified for the current tray type.\nWidth of the rack might be "
         "wrong.",
         {},
         "Für den aktuellen Tray-Typ ist ein ungültiges Rack angegeben.\nDie Breite des Racks "
         "ist "
         "möglicherweise falsch."},
        // A caption with its mnemonic: each language marks its own letter.
        {"de", "Miscellaneous...", 'M', "&Sonstiges..."},
        {"ja", "Miscellaneous...", 'M', "その他(&M)..."},
        {"de", "Save", 'S', "S&peichern"},
        // A letter chosen anew: the caption's translation keeps it, or adds it.
        {"de", "Save", 'e', "Sp&eichern"},
        {"ja", "Save", 'e', "保存(&E)"},
        {"ja", "User name:", 'U', "ユーザー名(&U):"},
        // A caption the catalogue does not hold stays, with its letter.
        {"de", "R&D", 'D', "R&&&D"},
        // Composed messages: the template translated, its parts (paths, reasons) as they stand.
        {"de",
         FromAnsi(failures),
         {},
         "/srv/station/LUMAEXE/lumagen.ist kann nicht gelesen werden: Permission denied\n"
         "/srv/station/registry.reg kann nicht geschrieben werden: Read-only file system"},
        {"ja",
         "The user name or password is wrong (None). Tries left: 2.",
         {},
         "ユーザー名またはパスワードが正しくありません（None）。残りの試行回数: 2。"},
        {"de", "Rack ID &3:", {}, "Rack-ID &3:"},
        {"ja", "RACK_Y_DIST (any number but 32767):", {}, "RACK_Y_DIST（32767以外の任意の数値）:"},
        {"de",
         FromAnsi(LoadResString(900)).replace("%1", "registry.reg: missing"),
         {},
         "Es wurde keine Station des Datensystems gefunden (registry.reg: missing); wählen Sie "
         "den Ordner, in dem das Datensystem installiert ist, also den Ordner, der LUMAEXE "
         "enthält oder in dem LUMAEXE angelegt werden darf."},
        {"ja",
         "On the custom trays:\nTwo racks: fits\nDeep: too long: 1800 deep, RACK_Y_DIST 1200",
         {},
         "カスタムトレイ上:\nTwo racks: 適合\nDeep: 奥行きが大きすぎます: 奥行き "
         "1800、RACK_Y_DIST "
         "1200"},
        // The first start's reason, its path a value.
        {"de",
         "/srv/registry.reg: No such file or directory (the registry store names the data "
         "system's folder; LUMACFG_PROGRAM_DIR is not set)",
         {},
         "/srv/registry.reg: Datei oder Verzeichnis nicht gefunden (der Registrierungsspeicher "
         "nennt den Ordner des Datensystems; LUMACFG_PROGRAM_DIR ist nicht gesetzt)"},
        // A custom entry in its editor's list and the loader's verdict: the name, the key and
        // its value stay.
        {"ja", "None (1001): ok", {}, "None (1001): 正常"},
        {"de",
         "50 mL (1000): " + FromAnsi(DescribeFault({"VIAL_Y_NUM", "50",
                                                    "VIAL_X_NUM times "
                                                    "VIAL_Y_NUM at most 999"})),
         {},
         "50 mL (1000): VIAL_Y_NUM=\"50\" (zulässig: VIAL_X_NUM mal VIAL_Y_NUM höchstens 999)"},
        {"ja",
         "The loader refuses this entry: " + FromAnsi(DescribeFault({"NAME", "",
                                                                     "1 to 15 "
                                                                     "characters"})),
         {},
         "ローダーはこのエントリを受け付けません: NAME がありません（許容: 1～15 文字）"},
        {"de",
         "Micro (1002): " + FromAnsi(DescribeFault({"RACK_X_DIST", "x", "1..999"})),
         {},
         "Micro (1002): RACK_X_DIST=\"x\" (zulässig: 1..999)"},
        // The editors' refusals, a damaged list's fault composed in its turn.
        {"de",
         "The rack list of custrack.ini is damaged: [INDEX] Rack_Num=\"abc\" (accepted: a number "
         "up to 1000). Entries it names may be missing; New, Copy and Delete of racks are "
         "refused until it is repaired in the file.",
         {},
         "Die Rack-Liste in custrack.ini ist beschädigt: [INDEX] Rack_Num=\"abc\" (zulässig: eine "
         "Zahl bis 1000). Einträge, die sie nennt, fehlen möglicherweise; Neu, Kopieren und "
         "Löschen von Racks sind gesperrt, bis sie in der Datei repariert ist."},
        {"ja",
         "RACK_1000 \"50 mL 5x8\" is in use: [CURRENT] RACK1_ID holds it.",
         {},
         "RACK_1000 \"50 mL 5x8\" は使用中です: [CURRENT] RACK1_ID が参照しています。"},
        // Values: a file name, and English shows everything as the core wrote it.
        {"de", "GENERAL.QCC", {}, "GENERAL.QCC"},
        {"en", "Miscellaneous...", 'M', "&Miscellaneous..."},
        {"en", "Prohibited Masses", {}, "Prohibited Masses"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.language) + ": " + c.text.toStdString());
        ASSERT_EQ(UseLanguage(QLocale(QString::fromLatin1(c.language))), c.language);
        EXPECT_EQ(c.mnemonic.isNull() ? Translated(c.text) : TranslatedCaption(c.text, c.mnemonic),
                  c.shown);
    }
}

TEST_F(TranslationTest, ListsAndLabelsOfValuesAreShownAsTheyStandCaptionsTranslated) {
    UseLanguage(QLocale(QLocale::German));
    QWidget root;
    auto* values = new QComboBox(&root);
    values->setObjectName("Cb_Values");
    auto* captions = new QComboBox(&root);
    captions->setObjectName("Cb_Captions");
    ShowEntriesAsCaptions(captions);
    auto* path = new PathLabel(&root);
    path->setObjectName("Lbl_Path");
    auto* caption = new QLabel(&root);
    caption->setObjectName("Lbl_Caption");
    ControlState list;
    list.items = {"None", "Peristaltic Pump"};
    list.chosen = 1;
    ControlState text;
    text.text = "Standard";
    ShowState(
        {{"Cb_Values", list}, {"Cb_Captions", list}, {"Lbl_Path", text}, {"Lbl_Caption", text}},
        &root);
    EXPECT_EQ(path->text(), "Standard");
    UseLanguage(QLocale(QLocale::Japanese));
    ShowState({{"Lbl_Path", text}, {"Lbl_Caption", text}}, &root);
    EXPECT_EQ(path->text(), "Standard");
    EXPECT_EQ(caption->text(), QString::fromUtf8("標準"));
    UseLanguage(QLocale(QLocale::German));
    ShowState({{"Cb_Values", list}, {"Cb_Captions", list}}, &root);
    EXPECT_EQ(values->itemText(0), "None");
    EXPECT_EQ(values->currentText(), "Peristaltic Pump");
    EXPECT_EQ(captions->itemText(0), "Keine");
    EXPECT_EQ(captions->currentText(), "Peristaltikpumpe");
}

// One catalogue's entries: source and translation, and whether the translation is finished.
struct Entry {
    QString source;
    QString translation;
    bool finished = true;
};

std::vector<Entry> Catalogue(const QString& language) {
    QFile file(QStringLiteral(LUMACFG_SOURCE_DIR "/translations/lumacfg_%1.ts").arg(language));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
    std::vector<Entry> entries;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("message")) entries.emplace_back();
        if (xml.name() == QLatin1String("source")) entries.back().source = xml.readElementText();
        if (xml.name() == QLatin1String("translation")) {
            entries.back().finished = !xml.attributes().hasAttribute(QLatin1String("type"));
            entries.back().translation = xml.readElementText();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return entries;
}

// The placeholders %1.. of a text, in order of number.
QStringList Placeholders(const QString& text) {
    QStringList found;
    for (const auto& at : QRegularExpression(QStringLiteral("%[1-9]")).globalMatch(text))
        found << at.captured();
    found.sort();
    found.removeDuplicates();
    return found;
}

// The mnemonic markers of a caption: "&" before a character, "&&" being an ampersand.
int Markers(const QString& text) {
    int markers = 0;
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != QLatin1Char('&')) continue;
        if (text[i + 1] != QLatin1Char('&')) ++markers;
        ++i;
    }
    return markers;
}

TEST(CatalogueTest, EveryTextIsTranslatedWithItsPlaceholdersAndOneMnemonic) {
    QStringList sources[2];
    int language = 0;
    for (const QString& code : {QStringLiteral("de"), QStringLiteral("ja")}) {
        const std::vector<Entry> entries = Catalogue(code);
        EXPECT_GT(entries.size(), 150u);
        for (const Entry& entry : entries) {
            SCOPED_TRACE(code.toStdString() + ": " + entry.source.toStdString());
            sources[language] << entry.source;
            EXPECT_TRUE(entry.finished);
            EXPECT_FALSE(entry.translation.trimmed().isEmpty());
            EXPECT_EQ(Placeholders(entry.translation), Placeholders(entry.source));
            EXPECT_EQ(Markers(entry.translation), Markers(entry.source) > 0 ? 1 : 0);
        }
        ++language;
    }
    EXPECT_EQ(sources[0], sources[1]);  // both catalogues hold the same texts
}

}  // namespace
}  // namespace lumacfg::ui
