// Every window at the size it opens with, in each shipped language, in the program's font and in
// a font 1.5 times larger (and, in a second run of this program with QT_SCALE_FACTOR=2, at twice
// the scale): no caption of a label, button, check box, option button or frame, nor a caption the
// tray picture draws over a position, is wider or taller than the room its control gives it, and no
// control overlaps a sibling or reaches beyond its parent. The tray picture is drawn at the
// screen's own resolution.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSizeGrip>
#include <QStyle>
#include <QStyleOption>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/gui/qt_message_boxes.h"
#include "config/start_up.h"
#include "platform/file_failures.h"
#include "racks/custom_racks.h"
#include "resources/string_table.h"
#include "support/temp_station.h"
#include "ui/autosampler/asx500_dialog.h"
#include "ui/autosampler/asx_dialog.h"
#include "ui/autosampler/custom_entries_dialog.h"
#include "ui/autosampler/qt/asx500_window.h"
#include "ui/autosampler/qt/asx_window.h"
#include "ui/autosampler/qt/custom_entries_window.h"
#include "ui/autosampler/qt/tray_picture.h"
#include "ui/autosampler/qt/vas_window.h"
#include "ui/autosampler/vas_dialog.h"
#include "ui/dialog/qt/ansi_text.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/dialog/qt/dialog_widgets.h"
#include "ui/dialog/qt/station_font.h"
#include "ui/dialog/qt/translation.h"
#include "ui/file/qt/qt_file_chooser.h"
#include "ui/logon/logon_dialog.h"
#include "ui/logon/qt/logon_window.h"
#include "ui/main/main_dialog.h"
#include "ui/main/qt/main_window.h"
#include "ui/main/qt/wait_window.h"
#include "ui/main/wait_dialog.h"
#include "ui/misc/misc_dialog.h"
#include "ui/misc/qt/misc_window.h"
#include "ui/start/first_start_dialog.h"
#include "ui/start/qt/first_start_window.h"

namespace lumacfg::gui {
namespace {

namespace fs = std::filesystem;

// The languages the windows are shipped in.
const std::string kLanguages[] = {"en", "de", "ja"};

struct FontSize {
    const char* name;
    double factor;  // of the point size the program sets
};
const FontSize kFontSizes[] = {{"ProgramFont", 1.0}, {"LargerFont", 1.5}};

// ---------------------------------------------------------------------------------------------
// The judgement of a shown window.

// A caption, the size it takes in its control's font and the room the control's style draws it
// in.
struct CaptionRoom {
    QString text;
    QSize needed;
    QSize given;
};

std::optional<CaptionRoom> FrameTitleRoom(const QGroupBox& frame) {
    if (frame.title().isEmpty()) return std::nullopt;
    QStyleOptionGroupBox option;
    option.initFrom(&frame);
    option.text = frame.title();
    option.textAlignment = frame.alignment();
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    option.lineWidth = 1;
    const QRect title = frame.style()->subControlRect(QStyle::CC_GroupBox, &option,
                                                      QStyle::SC_GroupBoxLabel, &frame);
    // The title keeps as far from the frame's right edge as from its left one.
    return CaptionRoom{frame.title(),
                       frame.fontMetrics().size(Qt::TextShowMnemonic, frame.title()),
                       {frame.width() - 2 * title.left(), frame.height()}};
}

std::optional<CaptionRoom> LabelRoom(const QLabel& label) {
    // A path label shortens a long path in its middle by design (its tool tip shows it all).
    if (label.text().isEmpty() || dynamic_cast<const ui::PathLabel*>(&label) != nullptr)
        return std::nullopt;
    const int margin = label.margin();
    const QRect room = label.contentsRect().adjusted(margin, margin, -margin, -margin);
    const int flags = (label.buddy() != nullptr ? Qt::TextShowMnemonic : 0) |
                      (label.wordWrap() ? Qt::TextWordWrap : 0);
    // Wrapped at the room's width: a word longer than the room makes the text wider than it.
    const QRect text =
        label.fontMetrics().boundingRect(QRect(0, 0, room.width(), 1 << 20), flags, label.text());
    return CaptionRoom{label.text(), text.size(), room.size()};
}

std::optional<CaptionRoom> ButtonRoom(const QAbstractButton& button) {
    if (button.text().isEmpty()) return std::nullopt;
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    option.icon = button.icon();
    option.iconSize = button.iconSize();
    // A check box and an option button draw their caption beside the indicator; a push button
    // and a tool button inside their frame.
    QStyle::SubElement caption = QStyle::SE_PushButtonContents;
    if (qobject_cast<const QCheckBox*>(&button) != nullptr) {
        caption = QStyle::SE_CheckBoxContents;
    } else if (qobject_cast<const QRadioButton*>(&button) != nullptr) {
        caption = QStyle::SE_RadioButtonContents;
    } else if (const auto* push = qobject_cast<const QPushButton*>(&button)) {
        if (push->autoDefault()) option.features |= QStyleOptionButton::AutoDefaultButton;
        if (push->isDefault()) option.features |= QStyleOptionButton::DefaultButton;
        if (push->isFlat()) option.features |= QStyleOptionButton::Flat;
    }
    const QRect room = button.style()->subElementRect(caption, &option, &button);
    return CaptionRoom{button.text(),
                       button.fontMetrics().size(Qt::TextShowMnemonic, button.text()), room.size()};
}

std::optional<CaptionRoom> RoomOf(const QWidget& control) {
    if (const auto* frame = qobject_cast<const QGroupBox*>(&control)) return FrameTitleRoom(*frame);
    if (const auto* label = qobject_cast<const QLabel*>(&control)) return LabelRoom(*label);
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        return ButtonRoom(*button);
    return std::nullopt;
}

QString NameOf(const QWidget& control) {
    return control.objectName().isEmpty() ? QString::fromLatin1(control.metaObject()->className())
                                          : control.objectName();
}

QString SizeText(QSize size) {
    return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height());
}

// The visible controls directly under `parent`; the parts Qt builds inside its own widgets
// (a list's viewport and scroll bars, named "qt_...") are not controls of the window, nor is a
// dialog's size grip, which stands in its corner over the layout.
std::vector<const QWidget*> VisibleControls(const QWidget& parent) {
    std::vector<const QWidget*> controls;
    for (const QWidget* child : parent.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (child->isVisible() && !child->isWindow() &&
            !child->objectName().startsWith(QLatin1String("qt_")) &&
            qobject_cast<const QSizeGrip*>(child) == nullptr) {
            controls.push_back(child);
        }
    }
    return controls;
}

void CollectFaults(const QWidget& parent, const QString& window, std::vector<std::string>& faults) {
    const std::vector<const QWidget*> controls = VisibleControls(parent);
    auto fault = [&](const QString& text) {
        faults.push_back((window + QStringLiteral(": ") + text).toStdString());
    };
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const QWidget& control = *controls[i];
        if (const std::optional<CaptionRoom> room = RoomOf(control)) {
            if (room->needed.width() > room->given.width() ||
                room->needed.height() > room->given.height()) {
                fault(QStringLiteral("%1 \"%2\" needs %3, has %4")
                          .arg(NameOf(control), room->text, SizeText(room->needed),
                               SizeText(room->given)));
            }
        }
        if (const auto* picture = qobject_cast<const ui::TrayPicture*>(&control)) {
            for (const ui::TrayPicture::Caption& caption : picture->Captions()) {
                if (caption.needed > caption.given) {
                    fault(QStringLiteral("%1 caption \"%2\" needs %3, has %4")
                              .arg(NameOf(control), caption.text)
                              .arg(caption.needed)
                              .arg(caption.given));
                }
            }
        }
        if (!parent.rect().contains(control.geometry())) {
            fault(QStringLiteral("%1 at (%2, %3) %4 reaches beyond %5 of %6")
                      .arg(NameOf(control))
                      .arg(control.x())
                      .arg(control.y())
                      .arg(SizeText(control.size()), NameOf(parent), SizeText(parent.size())));
        }
        for (std::size_t j = i + 1; j < controls.size(); ++j) {
            if (control.geometry().intersects(controls[j]->geometry())) {
                fault(QStringLiteral("%1 overlaps %2").arg(NameOf(control), NameOf(*controls[j])));
            }
        }
        CollectFaults(control, window, faults);
    }
}

// Every clipped caption and every overlap of the shown window, one sentence each.
std::vector<std::string> LayoutFaults(const QWidget& window) {
    std::vector<std::string> faults;
    CollectFaults(window, window.objectName(), faults);
    return faults;
}

// ---------------------------------------------------------------------------------------------
// The windows.

// A window with the model it shows, which lives as long as the window.
struct Opened {
    std::shared_ptr<void> model;
    std::unique_ptr<QWidget> window;
};

template <class View, class Model, class... Extra>
Opened Open(std::shared_ptr<Model> model, Extra... extra) {
    auto window = std::make_unique<View>(*model, extra...);
    return {std::move(model), std::move(window)};
}

// The station a window is opened on: the demo station, of the GPIB or the LAN model, or with a
// rack too wide for the third position of its tray.
enum class Station { Gpib, Lan, RackTooWide };

// A logon that refuses every password at once.
class RefusingLogon final : public platform::Authenticator {
  public:
    platform::Authentication Authenticate(const std::string&, const std::string&) override {
        return {.accepted = false, .user = {}, .reason = "Authentication failure"};
    }
};

// The logon window after a wrong password: its longest message.
Opened OpenLogonAfterWrongPassword() {
    static RefusingLogon logon;
    auto model = std::make_shared<ui::LogonDialog>("operator", logon);
    auto window = std::make_unique<ui::LogonWindow>(*model);
    window->Binder().SetText(QStringLiteral("Ed_Password"), QStringLiteral("wrong"));
    QSignalSpy answered(window.get(), &ui::LogonWindow::Answered);
    window->Binder().Click(QStringLiteral("Cd_OK"));
    EXPECT_TRUE(answered.wait(5000));
    return {std::move(model), std::move(window)};
}

Opened OpenCustomEntries(EntryKind kind) {
    std::shared_ptr<ui::CustomEntriesDialog> model = ui::OpenCustomEntries(kind);
    EXPECT_NE(model, nullptr);
    return Open<ui::CustomEntriesWindow>(model, kind, nullptr);
}

struct WindowRow {
    const char* name;
    Station station;
    std::function<Opened()> open;
};

const WindowRow kWindows[] = {
    {"MainWindowGpib", Station::Gpib,
     [] { return Open<ui::MainWindow>(std::make_shared<ui::MainDialog>(Config())); }},
    {"MainWindowLan", Station::Lan,
     [] { return Open<ui::MainWindow>(std::make_shared<ui::MainDialog>(Config())); }},
    {"Miscellaneous", Station::Gpib,
     [] {
         return Open<ui::MiscWindow>(std::make_shared<ui::MiscDialog>(
             Config(), ui::MiscSurroundings{"OPAL", "Auto Dilution", true}));
     }},
    {"Asx500", Station::Gpib,
     [] { return Open<ui::Asx500Window>(std::make_shared<ui::Asx500Dialog>(Config())); }},
    {"Asx500WithMisfit", Station::RackTooWide,
     [] { return Open<ui::Asx500Window>(std::make_shared<ui::Asx500Dialog>(Config())); }},
    {"AsxKlr8", Station::Gpib,
     [] { return Open<ui::AsxWindow>(std::make_shared<ui::AsxDialog>(Config(), "KLR-8", false)); }},
    {"Vas", Station::Gpib,
     [] { return Open<ui::VasWindow>(std::make_shared<ui::VasDialog>(Config(), false)); }},
    {"WaitWindow", Station::Gpib,
     [] {
         // This program runs as long as the window is looked at.
         return Open<ui::WaitWindow>(
             std::make_shared<ui::WaitDialog>(static_cast<platform::ProcessId>(::getpid())));
     }},
    {"CustomTrays", Station::Gpib, [] { return OpenCustomEntries(EntryKind::Tray); }},
    {"CustomRacks", Station::Gpib, [] { return OpenCustomEntries(EntryKind::Rack); }},
    {"FirstStart", Station::Gpib,
     [] {
         return Open<ui::FirstStartWindow>(std::make_shared<ui::FirstStartDialog>(
             platform::FileFailure{platform::FileOperation::Read, "/etc/plasmasuite/registry.reg",
                                   "No such file or directory"}));
     }},
    {"LogonAfterWrongPassword", Station::Gpib, OpenLogonAfterWrongPassword},
};

// ---------------------------------------------------------------------------------------------
// The fixture: the demo station started, the font and language chosen before a window is built.

class ShownWindow : public support::TempStation {
  protected:
    void Prepare(Station station, double fontFactor) {
        const fs::path demo = fs::path(LUMACFG_SOURCE_DIR) / "examples/demo-station/LUMAEXE";
        fs::copy(demo, ProgramDir(), fs::copy_options::recursive);
        if (station == Station::Lan) {
            support::WriteBytes(RegistryPath(),
                                support::RegistryText("\"Path\"=\"C:\\\\PLASMA\"\r\n"
                                                      "\"HardWare\"=dword:00000002\r\n"));
        }
        if (station == Station::RackTooWide) {
            const fs::path custrack = ProgramDir() / "custrack.ini";
            std::string text = support::ReadBytes(custrack).value_or("");
            const std::string chosen = "RACK3_ID=1001";
            const std::size_t at = text.find(chosen);
            ASSERT_NE(at, std::string::npos);
            text.replace(at, chosen.size(), "RACK3_ID=1004");
            support::WriteBytes(custrack, text);
        }
        ASSERT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
        (void)LoadCurrentTray();
        RackTrays().WorkingTray = RackTrays().CurrentTray;
        messages_.clear();  // the load's own notices

        // The font the program sets, made larger as the desktop asks.
        QFont font = ui::StationFont(ui::FromAnsi(LoadResString(kResFontName)),
                                     ui::FromAnsi(LoadResString(kResFontSize)));
        font.setPointSizeF(font.pointSizeF() * fontFactor);
        QApplication::setFont(font);
    }

    // The windows' texts in `language` from here on.
    static void UseLanguage(const std::string& language) {
        ASSERT_EQ(ui::UseLanguage(QLocale(QString::fromStdString(language))),
                  QString::fromStdString(language));
    }

    // Shown at the size its layout asks for, as on a screen that holds it (Qt's offscreen
    // screen is small, and a window larger than the screen would open at a smaller size).
    void Show(QWidget& window) {
        window.resize(window.sizeHint());
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        QApplication::processEvents();  // the layouts' pending requests
    }

    void TearDown() override {
        opened_ = {};
        ui::UseLanguage(QLocale(QLocale::English));
        QApplication::setFont(programFont_);
        ResetCustomDefs();
        TempStation::TearDown();
    }

    QFont programFont_ = QApplication::font();
    Opened opened_;
};

using LayoutCase = std::tuple<WindowRow, FontSize, std::string>;

// A case is listed by its window's and font's names.
void PrintTo(const WindowRow& row, std::ostream* out) {
    *out << row.name;
}
void PrintTo(const FontSize& font, std::ostream* out) {
    *out << font.name;
}

class WindowLayoutTest : public ShownWindow, public testing::WithParamInterface<LayoutCase> {};

TEST_P(WindowLayoutTest, NoCaptionIsClippedAndNoControlOverlapsAnother) {
    const auto& [row, font, language] = GetParam();
    ASSERT_NO_FATAL_FAILURE(UseLanguage(language));
    ASSERT_NO_FATAL_FAILURE(Prepare(row.station, font.factor));
    opened_ = row.open();
    ASSERT_NE(opened_.window, nullptr);
    ASSERT_NO_FATAL_FAILURE(Show(*opened_.window));
    EXPECT_EQ(LayoutFaults(*opened_.window), std::vector<std::string>{});
}

// "MainWindowLan_LargerFont_en"
std::string CaseName(const testing::TestParamInfo<LayoutCase>& info) {
    return std::string(std::get<WindowRow>(info.param).name) + "_" +
           std::get<FontSize>(info.param).name + "_" + std::get<std::string>(info.param);
}

INSTANTIATE_TEST_SUITE_P(Windows, WindowLayoutTest,
                         testing::Combine(testing::ValuesIn(kWindows),
                                          testing::ValuesIn(kFontSizes),
                                          testing::ValuesIn(kLanguages)),
                         CaseName);

// ---------------------------------------------------------------------------------------------
// The modal windows: the file selection and the message boxes, measured while they wait for an
// answer and then closed.

struct ModalRow {
    const char* name;
    std::function<void(const fs::path& station)> open;  // returns when the window is closed
};

const ModalRow kModals[] = {
    {"FileSelection",
     [](const fs::path& station) {
         ui::FileRequest request{"Select QC Mode", "*.QCC", "GENERAL.QCC", station.string(), 0};
         ui::QtFileChooser(nullptr).SelectFile({}, ui::SelectKind::OpenFolder, request);
     }},
    {"MessageBox",
     [](const fs::path& station) {
         // The longest the core shows: a list of failures, with a question.
         const std::string failures = platform::DescribeAll(
             {{platform::FileOperation::Read, (station / "LUMAEXE/lumagen.ist").string(),
               "Permission denied"},
              {platform::FileOperation::Write, (station / "registry.reg").string(),
               "Read-only file system"}});
         QtMessageBoxes().Show({.text = failures,
                                .title = LoadResString(kResErrorTitle),
                                .icon = platform::MessageIcon::Exclamation,
                                .buttons = platform::MessageButtons::YesNoCancel});
     }},
};

using ModalCase = std::tuple<ModalRow, FontSize, std::string>;

void PrintTo(const ModalRow& row, std::ostream* out) {
    *out << row.name;
}

class ModalLayoutTest : public ShownWindow, public testing::WithParamInterface<ModalCase> {};

TEST_P(ModalLayoutTest, NoCaptionIsClippedAndNoControlOverlapsAnother) {
    const auto& [row, font, language] = GetParam();
    ASSERT_NO_FATAL_FAILURE(UseLanguage(language));
    ASSERT_NO_FATAL_FAILURE(Prepare(Station::Gpib, font.factor));
    std::optional<std::vector<std::string>> faults;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (modal == nullptr || !modal->isVisible()) return;
        QApplication::processEvents();  // the layouts' pending requests
        faults = LayoutFaults(*modal);
        modal->reject();
    });
    look.start(200);
    row.open(root_);
    ASSERT_TRUE(faults.has_value()) << "the window did not show";
    EXPECT_EQ(*faults, std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(Windows, ModalLayoutTest,
                         testing::Combine(testing::ValuesIn(kModals), testing::ValuesIn(kFontSizes),
                                          testing::ValuesIn(kLanguages)),
                         [](const testing::TestParamInfo<ModalCase>& info) {
                             return std::string(std::get<ModalRow>(info.param).name) + "_" +
                                    std::get<FontSize>(info.param).name + "_" +
                                    std::get<std::string>(info.param);
                         });

// The judgement itself, on windows made to fail.
class LayoutJudgementTest : public testing::Test {};

TEST_F(LayoutJudgementTest, NamesAClippedCaptionAndOverlappingControls) {
    QWidget window;
    window.setObjectName(QStringLiteral("Fm_Made"));
    window.resize(300, 200);
    auto* squeezed = new QCheckBox(QStringLiteral("A caption far too long for its room"), &window);
    squeezed->setObjectName(QStringLiteral("Ck_Squeezed"));
    squeezed->setGeometry(10, 10, 60, 30);
    auto* under = new QPushButton(QStringLiteral("OK"), &window);
    under->setObjectName(QStringLiteral("OK"));
    under->setGeometry(50, 20, 80, 30);
    auto* fitting = new QLabel(QStringLiteral("Fits"), &window);
    fitting->setObjectName(QStringLiteral("Lbl_Fits"));
    fitting->setGeometry(10, 100, 200, 30);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));

    const std::vector<std::string> faults = LayoutFaults(window);
    ASSERT_EQ(faults.size(), 2u) << testing::PrintToString(faults);
    EXPECT_THAT(faults[0], testing::MatchesRegex(
                               "Fm_Made: Ck_Squeezed \"A caption far too long for its room\" "
                               "needs [0-9]+ x [0-9]+, has [0-9]+ x 30"));
    EXPECT_EQ(faults[1], "Fm_Made: Ck_Squeezed overlaps OK");
}

TEST_F(LayoutJudgementTest, NamesAControlBeyondItsFrameAndAWrappedTextTooTall) {
    QWidget window;
    window.setObjectName(QStringLiteral("Fm_Made"));
    window.resize(300, 200);
    auto* frame = new QGroupBox(QStringLiteral("Frame"), &window);
    frame->setObjectName(QStringLiteral("Gb_Frame"));
    frame->setGeometry(0, 0, 150, 150);
    auto* wrapped = new QLabel(QStringLiteral("one two three four five six seven eight"), frame);
    wrapped->setObjectName(QStringLiteral("Lbl_Wrapped"));
    wrapped->setWordWrap(true);
    wrapped->setGeometry(100, 40, 60, wrapped->fontMetrics().height());
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));

    const std::vector<std::string> faults = LayoutFaults(window);
    ASSERT_EQ(faults.size(), 2u) << testing::PrintToString(faults);
    EXPECT_THAT(faults[0], testing::StartsWith("Fm_Made: Lbl_Wrapped \"one two three"));
    EXPECT_THAT(faults[1], testing::MatchesRegex(
                               "Fm_Made: Lbl_Wrapped at \\(100, 40\\) 60 x [0-9]+ reaches beyond "
                               "Gb_Frame of 150 x 150"));
}

TEST_F(LayoutJudgementTest, NamesATrayPicturesCaptionWiderThanItsPosition) {
    QWidget window;
    window.setObjectName(QStringLiteral("Fm_Made"));
    auto* picture = new ui::TrayPicture(&window);
    ui::TrayPlan plan;
    plan.trayName = "ASX 60";
    for (const char* rack : {"50 mL 5x8", "1 Micro 20x50", "R3"}) {
        ui::TrayPosition position;
        position.rackId = 1;
        position.rackName = rack;
        plan.positions.push_back(position);
    }
    picture->Show(plan);
    // At the size it asks for, every caption fits; squeezed, the long ones do not.
    window.resize(picture->sizeHint());
    picture->resize(picture->sizeHint());
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(LayoutFaults(window), std::vector<std::string>{});
    picture->resize(picture->sizeHint() / 3);
    const std::vector<std::string> faults = LayoutFaults(window);
    ASSERT_FALSE(faults.empty());
    EXPECT_THAT(faults[0], testing::MatchesRegex(
                               "Fm_Made: lumacfg::ui::TrayPicture caption \"1 50 mL 5x8\" needs "
                               "[0-9]+, has [0-9]+"));
}

// ---------------------------------------------------------------------------------------------
// The tray picture at twice the scale (run with QT_SCALE_FACTOR=2).

class TrayPictureAtScale2 : public ShownWindow {};

TEST_F(TrayPictureAtScale2, IsDrawnAtTheScreensResolution) {
    if (qgetenv("QT_SCALE_FACTOR") != "2") GTEST_SKIP() << "runs with QT_SCALE_FACTOR=2";
    ASSERT_NO_FATAL_FAILURE(Prepare(Station::RackTooWide, 1.0));
    opened_ = Open<ui::Asx500Window>(std::make_shared<ui::Asx500Dialog>(Config()));
    ASSERT_NO_FATAL_FAILURE(Show(*opened_.window));
    auto* picture = opened_.window->findChild<ui::TrayPicture*>();
    ASSERT_NE(picture, nullptr);

    const QImage image = picture->grab().toImage();
    EXPECT_EQ(image.devicePixelRatio(), 2.0);
    EXPECT_EQ(image.size(), picture->size() * 2);
    // A picture drawn at half the resolution and enlarged has every 2 x 2 block of one colour;
    // the outlines and vials drawn at the screen's own resolution do not.
    int finerThanALogicalPixel = 0;
    for (int y = 0; y + 1 < image.height(); y += 2) {
        for (int x = 0; x + 1 < image.width(); x += 2) {
            const QRgb corner = image.pixel(x, y);
            if (image.pixel(x + 1, y) != corner || image.pixel(x, y + 1) != corner ||
                image.pixel(x + 1, y + 1) != corner) {
                ++finerThanALogicalPixel;
            }
        }
    }
    EXPECT_GT(finerThanALogicalPixel, 100);
}

}  // namespace
}  // namespace lumacfg::gui
