#include "ui/autosampler/qt/tray_picture.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "ui/dialog/qt/ansi_text.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/dialog/qt/translation.h"

namespace lumacfg::ui {
namespace {

// A standard tray's positions, in the same units as a custom tray's, only to lay them out.
constexpr double kStandardPitchX = 1000;
constexpr double kStandardPitchY = 2000;

const QColor kRefused(200, 30, 30);

struct Position {
    QRectF place;  // the tray's room for a rack
    QRectF rack;   // the rack chosen, as large as it is; empty for none or a standard rack
};

// Where each position and its rack stand on the tray, in the tray's units.
std::vector<Position> Layout(const TrayPlan& plan) {
    std::vector<Position> layout;
    for (std::size_t i = 0; i < plan.positions.size(); ++i) {
        const TrayPosition& position = plan.positions[i];
        Position shown;
        if (plan.custom != nullptr) {
            const CustomTrayDef& tray = *plan.custom;
            shown.place = QRectF(tray.rackXOrg + static_cast<double>(i) * tray.rackXDist,
                                 tray.rackYOrg, tray.rackXDist, tray.rackYDist);
        } else {
            shown.place = QRectF(static_cast<double>(i) * kStandardPitchX, 0, kStandardPitchX,
                                 kStandardPitchY);
        }
        if (position.custom != nullptr) {
            shown.rack = QRectF(shown.place.topLeft(),
                                QSizeF(RackWidth(*position.custom), RackLength(*position.custom)));
        }
        layout.push_back(shown);
    }
    return layout;
}

std::vector<QPointF> Bottles(const TrayPlan& plan) {
    std::vector<QPointF> bottles;
    if (plan.custom == nullptr) return bottles;
    const CustomTrayDef& tray = *plan.custom;
    for (int k = 0; k < tray.bottleXNum; ++k)
        bottles.emplace_back(tray.bottleXOrg + k * tray.bottleXDist, tray.bottleYOrg);
    return bottles;
}

double BottleRadius(const TrayPlan& plan) {
    const double pitch = plan.custom != nullptr ? plan.custom->bottleXDist : 0;
    return std::max(pitch * 0.35, 40.0);
}

// The tray's outline in its own units: every position, every rack and the bottle row, with a
// margin.
QRectF TrayBounds(const TrayPlan& plan, const std::vector<Position>& layout) {
    QRectF tray;
    for (const Position& p : layout) tray = tray.united(p.place).united(p.rack);
    const double radius = BottleRadius(plan);
    for (const QPointF& b : Bottles(plan))
        tray = tray.united(QRectF(b, b).adjusted(-radius, -radius, radius, radius));
    const double margin = std::max(tray.width(), tray.height()) * 0.04;
    return tray.adjusted(-margin, -margin, margin, margin);
}

// The caption over a position: its number and its rack; a rack drawn alone needs no number.
QString CaptionOf(const TrayPlan& plan, std::size_t index) {
    const QString rack = FromAnsi(plan.positions[index].rackName);
    if (plan.positions.size() == 1) return rack;
    return QStringLiteral("%1 %2").arg(index + 1).arg(rack).trimmed();
}

// A misfit's reason, OK's own message, in the language shown and on one line.
QString ReasonShown(const std::string& reason) {
    return Translated(FromAnsi(reason)).replace(u'\n', u' ');
}

// What a position holds and the model's verdict on it, as it is said and written.
QString PositionText(const TrayPlan& plan, std::size_t index) {
    const TrayPosition& position = plan.positions[index];
    const QString rack = position.rackName.empty()
                             ? QCoreApplication::translate("lumacfg", "no rack")
                             : FromAnsi(position.rackName);
    QString text = QCoreApplication::translate("lumacfg", "Position %1 of %2: %3")
                       .arg(index + 1)
                       .arg(plan.positions.size())
                       .arg(rack);
    if (!position.reason.empty()) {
        text += QCoreApplication::translate("lumacfg", ", does not fit: %1")
                    .arg(ReasonShown(position.reason));
    }
    return text;
}

QString TrayText(const TrayPlan& plan) {
    QStringList parts{
        QCoreApplication::translate("lumacfg", "Tray %1").arg(FromAnsi(plan.trayName))};
    for (std::size_t i = 0; i < plan.positions.size(); ++i) parts << PositionText(plan, i);
    return parts.join(u'\n');
}

// Qt reports a widget of its own drawing as a "filler"; the picture says it is a picture.
QAccessibleInterface* AccessiblePictureOf(const QString& className, QObject* object) {
    auto* picture = qobject_cast<TrayPicture*>(object);
    if (picture == nullptr || className != QLatin1String(TrayPicture::staticMetaObject.className()))
        return nullptr;
    return new QAccessibleWidget(picture, QAccessible::Graphic);
}

// Installed before the first picture is asked for its interface (Qt keeps the first one).
void ReportPicturesAsGraphics() {
    static const bool installed = [] {
        QAccessible::installFactory(&AccessiblePictureOf);
        return true;
    }();
    (void)installed;
}

}  // namespace

TrayPicture::TrayPicture(QWidget* parent) : QWidget(parent) {
    ReportPicturesAsGraphics();
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(Qt::StrongFocus);
    Describe();
}

QSize TrayPicture::sizeHint() const {
    const QSize least(fontMetrics().averageCharWidth() * 60, fontMetrics().height() * 18);
    if (plan_.positions.empty()) return least;
    // Large enough that every caption fits over its position.
    const std::vector<Position> layout = Layout(plan_);
    double scale = 0;
    for (std::size_t i = 0; i < layout.size(); ++i) {
        scale = std::max(scale, (fontMetrics().horizontalAdvance(CaptionOf(plan_, i)) + 1) /
                                    layout[i].place.width());
    }
    const QRectF tray = TrayBounds(plan_, layout);
    const int width =
        std::max(least.width(), static_cast<int>(std::ceil(tray.width() * scale)) + 8);
    const int above = 2 * (fontMetrics().height() + 4);
    const int height =
        static_cast<int>(std::ceil(tray.height() * scale)) + 8 + above + ReasonsHeight(width - 8);
    return {width, std::max(least.height(), height)};
}

std::vector<TrayPicture::Caption> TrayPicture::Captions() const {
    std::vector<Caption> captions;
    const std::vector<Position> layout = Layout(plan_);
    const double scale = Scale(TrayRoom(), TrayBounds(plan_, layout));
    for (std::size_t i = 0; i < layout.size(); ++i) {
        const QString text = CaptionOf(plan_, i);
        captions.push_back({text, fontMetrics().horizontalAdvance(text),
                            static_cast<int>(layout[i].place.width() * scale)});
    }
    return captions;
}

QString TrayPicture::Reasons() const {
    QStringList reasons;
    for (std::size_t i = 0; i < plan_.positions.size(); ++i) {
        if (!plan_.positions[i].reason.empty())
            reasons << QStringLiteral("%1: %2").arg(i + 1).arg(
                ReasonShown(plan_.positions[i].reason));
    }
    return reasons.join(u'\n');
}

int TrayPicture::ReasonsHeight(int width) const {
    const QString reasons = Reasons();
    if (reasons.isEmpty()) return 0;
    return fontMetrics().boundingRect(QRect(0, 0, width, 0), Qt::TextWordWrap, reasons).height() +
           4;
}

QRectF TrayPicture::TrayRoom() const {
    QRectF room = rect().adjusted(4, 4, -4, -4);
    room.setTop(room.top() + 2 * (fontMetrics().height() + 4));
    room.setBottom(room.bottom() - ReasonsHeight(static_cast<int>(room.width())));
    return room;
}

double TrayPicture::Scale(const QRectF& room, const QRectF& tray) {
    return std::min(room.width() / tray.width(), room.height() / tray.height());
}

QSize TrayPicture::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 30, fontMetrics().height() * 10};
}

void TrayPicture::Show(TrayPlan plan) {
    plan_ = std::move(plan);
    current_ = std::min(current_, plan_.positions.empty() ? 0 : plan_.positions.size() - 1);
    Describe();
    updateGeometry();  // its captions ask for room
    update();
}

void TrayPicture::MoveTo(std::size_t position) {
    if (position >= plan_.positions.size() || position == current_) return;
    current_ = position;
    Describe();
    update();
}

void TrayPicture::Describe() {
    // Setting the name and the description tells a screen reader that they changed.
    const QString position = plan_.positions.empty() ? QString() : PositionText(plan_, current_);
    SetAccessibleName(
        this, position.isEmpty()
                  ? QCoreApplication::translate("lumacfg", "Tray picture")
                  : QCoreApplication::translate("lumacfg", "Tray picture, %1").arg(position));
    setAccessibleDescription(TrayText(plan_));
    setToolTip(position);
}

void TrayPicture::keyPressEvent(QKeyEvent* event) {
    const std::size_t last = plan_.positions.empty() ? 0 : plan_.positions.size() - 1;
    switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Up:
            MoveTo(current_ > 0 ? current_ - 1 : 0);
            break;
        case Qt::Key_Right:
        case Qt::Key_Down:
            MoveTo(current_ + 1);
            break;
        case Qt::Key_Home:
            MoveTo(0);
            break;
        case Qt::Key_End:
            MoveTo(last);
            break;
        default:
            QWidget::keyPressEvent(event);
            return;
    }
    event->accept();
}

void TrayPicture::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void TrayPicture::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

void TrayPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QFontMetrics metrics = fontMetrics();
    const int line = metrics.height();
    QRectF room = rect().adjusted(4, 4, -4, -4);

    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(room.adjusted(0, 0, 0, -room.height() + line), Qt::AlignLeft,
                     FromAnsi(plan_.trayName));
    room.setTop(room.top() + line + 4);
    // The position with the focus, written out; its line is kept while the focus is elsewhere,
    // so the tray does not move as the focus comes and goes.
    if (hasFocus() && !plan_.positions.empty()) {
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(room.adjusted(0, 0, 0, -room.height() + line), Qt::AlignLeft,
                         metrics.elidedText(PositionText(plan_, current_), Qt::ElideRight,
                                            static_cast<int>(room.width())));
    }
    room.setTop(room.top() + line + 4);

    // The reasons of the refused positions, under the tray.
    painter.setPen(kRefused);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignBottom | Qt::TextWordWrap, Reasons());
    room = TrayRoom();
    if (plan_.positions.empty() || room.height() <= line) return;

    const std::vector<Position> layout = Layout(plan_);
    const std::vector<QPointF> bottles = Bottles(plan_);
    const double bottleRadius = BottleRadius(plan_);
    const QRectF tray = TrayBounds(plan_, layout);
    const double corner = std::max(tray.width(), tray.height()) * 0.035;
    const double scale = Scale(room, tray);
    const std::vector<Caption> captions = Captions();
    painter.translate(room.left() + (room.width() - tray.width() * scale) / 2,
                      room.top() + (room.height() - tray.height() * scale) / 2);
    painter.scale(scale, scale);
    painter.translate(-tray.topLeft());
    auto hairline = [&](const QColor& color, Qt::PenStyle style = Qt::SolidLine) {
        QPen pen(color, 1.5 / scale, style);
        return pen;
    };

    painter.setPen(hairline(palette().color(QPalette::Dark)));
    painter.setBrush(palette().color(QPalette::Midlight));
    painter.drawRoundedRect(tray, corner, corner);
    painter.setBrush(palette().color(QPalette::Base));
    for (const QPointF& b : bottles) painter.drawEllipse(b, bottleRadius, bottleRadius);

    QFont label = font();
    label.setPointSizeF(label.pointSizeF() / scale);
    painter.setFont(label);
    for (std::size_t i = 0; i < layout.size(); ++i) {
        const TrayPosition& position = plan_.positions[i];
        const Position& p = layout[i];
        const bool refused = position.fit != RackFit::Fits;
        const QColor ink = refused ? kRefused : palette().color(QPalette::Text);
        painter.setPen(hairline(palette().color(QPalette::Dark), Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(p.place);
        const QRectF rack = p.rack.isEmpty() ? p.place : p.rack;
        QColor fill = refused ? kRefused : palette().color(QPalette::Base);
        fill.setAlpha(refused ? 60 : 255);
        painter.setPen(hairline(ink));
        painter.setBrush(fill);
        if (position.rackId != kNoId) painter.drawRect(rack);
        if (position.custom != nullptr) {
            const CustomRackDef& r = *position.custom;
            const double pitch = std::min(r.vialXDist > 0 ? r.vialXDist : r.vialXOrg,
                                          r.vialYDist > 0 ? r.vialYDist : r.vialYOrg);
            const double radius = std::max(pitch * 0.4, 1.0);
            painter.setBrush(Qt::NoBrush);
            for (int row = 0; row < r.vialYNum; ++row) {
                for (int column = 0; column < r.vialXNum; ++column) {
                    painter.drawEllipse(QPointF(rack.left() + r.vialXOrg + column * r.vialXDist,
                                                rack.top() + r.vialYOrg + row * r.vialYDist),
                                        radius, radius);
                }
            }
        } else if (position.rackId != kNoId) {
            // A standard rack has no vial grid in the file: its number stands for it.
            // Three times the caption's size, less where the position is narrower.
            const double room = p.place.width() * scale * 0.9;
            const double wide = metrics.horizontalAdvance(FromAnsi(position.rackName));
            QFont number = label;
            number.setPointSizeF(label.pointSizeF() * std::min(3.0, room / std::max(wide, 1.0)));
            painter.setFont(number);
            painter.setPen(ink);
            painter.drawText(rack, Qt::AlignCenter, FromAnsi(position.rackName));
            painter.setFont(label);
        }
        // The position's number and its rack, over the position; shortened only when the
        // picture is smaller than it asks to be.
        const Caption& c = captions[i];
        const QString caption =
            c.needed <= c.given ? c.text : metrics.elidedText(c.text, Qt::ElideRight, c.given);
        const QRectF text = p.place.adjusted(0, -label.pointSizeF() * 2.2, 0, 0);
        painter.setPen(ink);
        painter.drawText(QRectF(text.topLeft(), QSizeF(p.place.width(), label.pointSizeF() * 2)),
                         Qt::AlignHCenter | Qt::AlignBottom, caption);
    }
    if (hasFocus() && current_ < layout.size()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 3 / scale));
        painter.setBrush(Qt::NoBrush);
        const Position& focused = layout[current_];
        painter.drawRect(focused.place.united(focused.rack));
    }
}

}  // namespace lumacfg::ui
