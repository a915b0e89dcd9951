#include "ui/dialog/qt/dialog_binding.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QWidget>
#include <optional>

#include "ui/dialog/qt/ansi_text.h"
#include "ui/dialog/qt/dialog_widgets.h"
#include "ui/dialog/qt/translation.h"

namespace lumacfg::ui {
namespace {

constexpr const char* kMnemonicProperty = "lumacfgMnemonic";
constexpr const char* kHiddenProperty = "lumacfgKeepHidden";
constexpr const char* kOwnMnemonicProperty = "lumacfgOwnMnemonic";
constexpr const char* kAccessibleNameProperty = "lumacfgAccessibleName";
constexpr const char* kCaptionLabelProperty = "lumacfgCaptionLabel";
constexpr const char* kCaptionEntriesProperty = "lumacfgCaptionEntries";
constexpr const char* kSystemTextProperty = "lumacfgSystemText";

std::string ControlName(const QObject* object) {
    return object->objectName().toStdString();
}

// The widgets under root that carry a control's name (Qt's own inner widgets excluded).
QHash<QString, QWidget*> NamedWidgets(QWidget* root) {
    QHash<QString, QWidget*> named;
    for (QWidget* widget : root->findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        if (!name.isEmpty() && !name.startsWith(QLatin1String("qt_"))) named.insert(name, widget);
    }
    return named;
}

QChar MnemonicOf(const QWidget* widget) {
    const QVariant letter = widget->property(kMnemonicProperty);
    return letter.isValid() ? letter.toChar() : QChar();
}

// The caption in the language shown.
QString Caption(const QWidget* widget, const ControlState& state) {
    if (widget->property(kOwnMnemonicProperty).toBool()) return Translated(FromAnsi(state.text));
    return TranslatedCaption(FromAnsi(state.text), MnemonicOf(widget));
}

// A list's entries as shown: captions in the language shown, values as they stand.
QStringList Entries(const QWidget* list, const ControlState& state) {
    const bool captions = list->property(kCaptionEntriesProperty).toBool();
    QStringList entries;
    for (const std::string& item : state.items)
        entries << (captions ? Translated(FromAnsi(item)) : FromAnsi(item));
    return entries;
}

void ShowList(QComboBox* list, const ControlState& state) {
    const QStringList entries = Entries(list, state);
    bool same = list->count() == entries.size();
    for (int i = 0; same && i < list->count(); ++i) same = list->itemText(i) == entries[i];
    if (!same) {
        list->clear();
        list->addItems(entries);
    }
    list->setCurrentIndex(state.chosen >= 0 && state.chosen < list->count() ? state.chosen : -1);
}

void ShowListBox(QListWidget* list, const ControlState& state) {
    const QStringList items = Entries(list, state);
    bool same = list->count() == items.size();
    for (int i = 0; same && i < list->count(); ++i) same = list->item(i)->text() == items[i];
    if (!same) {
        list->clear();
        list->addItems(items);
    }
    list->setCurrentRow(state.chosen >= 0 && state.chosen < list->count() ? state.chosen : -1);
}

void ShowCheck(QAbstractButton* button, const ControlState& state) {
    // Option buttons exclude each other in Qt; the model may leave every one of them unchosen,
    // which Qt refuses while they exclude each other.
    const bool exclusive = button->autoExclusive();
    button->setAutoExclusive(false);
    button->setChecked(state.checked);
    button->setAutoExclusive(exclusive);
}

void ShowOne(QWidget* widget, const ControlState& state) {
    if (auto* box = qobject_cast<QLineEdit*>(widget)) {
        // Only a changed text is set: setting it moves the caret to the end.
        const QString text = FromAnsi(state.text);
        if (box->text() != text) box->setText(text);
    } else if (auto* label = qobject_cast<QLabel*>(widget)) {
        label->setTextFormat(Qt::PlainText);
        // A label marks a mnemonic only when it has a control to give the focus to.
        // A path label shows a value (a file, a folder), never translated.
        if (label->buddy() != nullptr) {
            label->setText(Caption(label, state));
        } else if (dynamic_cast<PathLabel*>(label) != nullptr) {
            label->setText(FromAnsi(state.text));
        } else if (label->property(kSystemTextProperty).toBool()) {
            label->setText(Translated(QString::fromLocal8Bit(state.text)));
        } else {
            label->setText(Translated(FromAnsi(state.text)));
        }
    } else if (auto* list = qobject_cast<QComboBox*>(widget)) {
        ShowList(list, state);
    } else if (auto* listBox = qobject_cast<QListWidget*>(widget)) {
        ShowListBox(listBox, state);
    } else if (auto* frame = qobject_cast<QGroupBox*>(widget)) {
        frame->setTitle(Caption(frame, state));
    } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        button->setText(Caption(button, state));
        if (qobject_cast<QCheckBox*>(button) != nullptr ||
            qobject_cast<QRadioButton*>(button) != nullptr) {
            ShowCheck(button, state);
        }
    }
    widget->setEnabled(state.enabled);
    widget->setVisible(state.visible && !widget->property(kHiddenProperty).toBool());
}

// A caption as a screen reader says it: "&&" is "&", a single "&" marks the mnemonic and is
// dropped, and a label's closing colon goes.
QString Spoken(const QString& caption) {
    QString spoken;
    spoken.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == QLatin1Char('&') && i + 1 < caption.size()) ++i;
        spoken.append(caption[i]);
    }
    spoken = spoken.trimmed();
    if (spoken.endsWith(QLatin1Char(':'))) spoken.chop(1);
    return spoken.trimmed();
}

const QLabel* CaptionLabelOf(const QWidget* widget) {
    return qobject_cast<const QLabel*>(widget->property(kCaptionLabelProperty).value<QObject*>());
}

const QLabel* LabelOf(const QWidget* widget, const QWidget* root) {
    for (const QLabel* label : root->findChildren<QLabel*>()) {
        if (label->buddy() == widget) return label;
    }
    return nullptr;
}

// A drop-down list as a screen reader reads it. Qt names a list on Linux by its chosen entry;
// here the list's name is its own (AccessibleNameOf, else its label's caption), and the chosen
// entry is its value and its text, as a screen reader reads a list's shown entry. Its entries
// are its one child, as in Qt's own.
class AccessibleList final : public QAccessibleWidget, public QAccessibleTextInterface {
  public:
    explicit AccessibleList(QComboBox* list) : QAccessibleWidget(list, QAccessible::ComboBox) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? Entry() : QAccessibleWidget::text(kind);
    }
    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(List()->view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child != nullptr && child->object() == List()->view() ? 0 : -1;
    }
    QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }
    void doAction(const QString& action) override {
        if (action == showMenuAction() || action == pressAction()) List()->showPopup();
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    // The chosen entry as a text that cannot be selected or edited.
    QString text(int start, int end) const override { return Entry().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(Entry().size()); }
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    QRect characterRect(int) const override { return {}; }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

  private:
    QComboBox* List() const { return static_cast<QComboBox*>(widget()); }
    QString Entry() const { return List()->currentText(); }
};

QAccessibleInterface* AccessibleListOf(const QString& className, QObject* object) {
    auto* list = qobject_cast<QComboBox*>(object);
    if (list == nullptr || className != QLatin1String("QComboBox")) return nullptr;
    return new AccessibleList(list);
}

// Installed before a list is first asked for its interface (Qt keeps the first interface of a
// widget): before ShowState fills the first list and before a view names a list itself.
void NameListsByTheirOwnNames() {
    static const bool installed = [] {
        QAccessible::installFactory(&AccessibleListOf);
        return true;
    }();
    (void)installed;
}

// The key as the model takes it; none for a key the model has no say in (Tab, Enter, a key
// with Ctrl or Alt).
std::optional<KeyPress> Translate(const QKeyEvent& key) {
    const Qt::KeyboardModifiers held = key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (held & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return std::nullopt;
    switch (key.key()) {
        case Qt::Key_Backspace:
            return KeyPress{KeyPress::Kind::Backspace};
        case Qt::Key_Left:
            return KeyPress{KeyPress::Kind::Left};
        case Qt::Key_Right:
            return KeyPress{KeyPress::Kind::Right};
        case Qt::Key_Up:
            return KeyPress{KeyPress::Kind::Up};
        case Qt::Key_Down:
            return KeyPress{KeyPress::Kind::Down};
        case Qt::Key_Home:
            return KeyPress{KeyPress::Kind::Home};
        case Qt::Key_End:
            return KeyPress{KeyPress::Kind::End};
        default:
            break;
    }
    const QString text = key.text();
    if (text.isEmpty() || text.front().unicode() < 0x20 || text.front().unicode() == 0x7F)
        return std::nullopt;
    return KeyPress{KeyPress::Kind::Character, ToAnsi(text).front()};
}

bool IsEsc(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_Escape && (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

BoxCaret CaretOf(const QLineEdit& box) {
    BoxCaret caret;
    caret.position = box.cursorPosition();
    caret.selectionStart = box.hasSelectedText() ? box.selectionStart() : caret.position;
    caret.selectionLength = box.hasSelectedText() ? box.selectionLength() : 0;
    return caret;
}

}  // namespace

QString CaptionWithMnemonic(const QString& caption, QChar letter) {
    QString shown;
    shown.reserve(caption.size() + 2);
    bool marked = letter.isNull();
    for (QChar character : caption) {
        if (!marked && character.toCaseFolded() == letter.toCaseFolded()) {
            shown.append(QLatin1Char('&'));
            marked = true;
        }
        shown.append(character);
        if (character == QLatin1Char('&')) shown.append(QLatin1Char('&'));
    }
    return shown;
}

void ShowState(const Controls& controls, QWidget* root) {
    NameListsByTheirOwnNames();
    const QHash<QString, QWidget*> widgets = NamedWidgets(root);
    for (const auto& [name, state] : controls) {
        const QString control = QString::fromStdString(name);
        if (control == root->objectName()) {
            root->setWindowTitle(Translated(FromAnsi(state.text)));
            continue;
        }
        QWidget* widget = widgets.value(control);
        if (widget == nullptr) continue;
        const QSignalBlocker blocker(widget);
        ShowOne(widget, state);
    }
    NameForScreenReaders(root);
}

void NameForScreenReaders(QWidget* root) {
    NameListsByTheirOwnNames();
    for (QWidget* widget : NamedWidgets(root)) {
        const QString name = AccessibleNameOf(widget, root);
        if (widget->accessibleName() != name) widget->setAccessibleName(name);
        // A label named by its caption says what it shows as its description.
        const auto* value = qobject_cast<const QLabel*>(widget);
        if (value != nullptr && CaptionLabelOf(widget) != nullptr &&
            widget->accessibleDescription() != value->text())
            widget->setAccessibleDescription(value->text());
    }
}

QString AccessibleNameOf(const QWidget* widget, const QWidget* root) {
    const QVariant given = widget->property(kAccessibleNameProperty);
    if (given.isValid()) return given.toString();
    if (const QLabel* caption = CaptionLabelOf(widget)) return Spoken(caption->text());
    if (const QLabel* label = LabelOf(widget, root)) return Spoken(label->text());
    if (const auto* frame = qobject_cast<const QGroupBox*>(widget)) return Spoken(frame->title());
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return Spoken(button->text());
    return {};
}

void SetAccessibleName(QWidget* widget, const QString& name) {
    NameListsByTheirOwnNames();
    widget->setProperty(kAccessibleNameProperty, name);
    widget->setAccessibleName(name);
}

void NameAfterCaption(QWidget* widget, QLabel* caption) {
    widget->setProperty(kCaptionLabelProperty, QVariant::fromValue<QObject*>(caption));
}

void SetMnemonic(QWidget* widget, QChar letter) {
    widget->setProperty(kMnemonicProperty, letter);
}

void KeepCaptionMnemonic(QWidget* widget) {
    widget->setProperty(kOwnMnemonicProperty, true);
}

void ShowEntriesAsCaptions(QWidget* list) {
    list->setProperty(kCaptionEntriesProperty, true);
}

void ShowSystemText(QWidget* label) {
    label->setProperty(kSystemTextProperty, true);
}

void KeepHidden(QWidget* widget) {
    widget->setProperty(kHiddenProperty, true);
    widget->hide();
}

DialogBinder::DialogBinder(DialogModel& model, QWidget* root)
    : QObject(root), model_(model), root_(root), widgets_(NamedWidgets(root)) {
    for (QWidget* widget : std::as_const(widgets_)) Bind(widget);
    root_->installEventFilter(this);
    Refresh();
}

void DialogBinder::Bind(QWidget* widget) {
    const std::string name = ControlName(widget);
    if (auto* box = qobject_cast<QLineEdit*>(widget)) {
        connect(box, &QLineEdit::textEdited, this, [this, name](const QString& text) {
            model_.SetText(name, ToAnsi(text));
            AfterAction();
        });
        box->installEventFilter(this);
    } else if (auto* list = qobject_cast<QComboBox*>(widget)) {
        connect(list, &QComboBox::activated, this, [this, name](int index) {
            model_.Choose(name, index);
            AfterAction();
        });
    } else if (auto* listBox = qobject_cast<QListWidget*>(widget)) {
        connect(listBox, &QListWidget::currentRowChanged, this, [this, name](int row) {
            model_.Choose(name, row);
            AfterAction();
        });
    } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        connect(button, &QAbstractButton::clicked, this, [this, button] { Clicked(button); });
    }
}

void DialogBinder::SetClickAction(const QString& control, std::function<void()> action) {
    actions_.insert(control, std::move(action));
}

void DialogBinder::SetText(const QString& control, const QString& text) {
    model_.SetText(control.toStdString(), ToAnsi(text));
    AfterAction();
}

void DialogBinder::Click(const QString& control) {
    if (auto* button = qobject_cast<QAbstractButton*>(widgets_.value(control))) Clicked(button);
}

void DialogBinder::Refresh() {
    ShowState(model_.State(), root_);
    emit Shown();
}

void DialogBinder::Clicked(QAbstractButton* button) {
    // A click takes the focus first, so a box being edited is left (and cleaned) before the
    // click is acted on, whether the click came from the mouse, a mnemonic or Enter.
    TakeFocus(button);
    const auto action = actions_.constFind(button->objectName());
    if (action != actions_.cend()) {
        (*action)();
    } else {
        model_.Click(ControlName(button));
    }
    AfterAction();
}

void DialogBinder::AfterAction() {
    Refresh();
    const DialogEnd end = model_.End();
    if (end != DialogEnd::Open && !ended_) {
        ended_ = true;
        emit Ended(end);
    }
}

bool DialogBinder::eventFilter(QObject* watched, QEvent* event) {
    if (watched == root_ && event->type() == QEvent::WindowActivate) {
        // Placed once the event is handled and the window system knows the window's size: a
        // window is activated as it is first mapped, its last resize still on its way.
        QMetaObject::invokeMethod(
            this, [this] { model_.Activated(static_cast<platform::WindowHandle>(root_->winId())); },
            Qt::QueuedConnection);
        return false;
    }
    // A key the focused control leaves unused reaches the window last.
    if (watched == root_ && !escapeButton_.isEmpty() && IsEsc(*event)) {
        Click(escapeButton_);
        return true;
    }
    auto* box = qobject_cast<QLineEdit*>(watched);
    if (box == nullptr || box == delivering_) return false;
    switch (event->type()) {
        case QEvent::KeyPress:
            return KeyPressed(box, static_cast<QKeyEvent*>(event));
        case QEvent::FocusIn:
            boxWithFocus_ = box;
            break;
        case QEvent::FocusOut: {
            // The focus leaving the window, or going to a menu of the box, does not leave it.
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
                LeaveBox(box);
            break;
        }
        default:
            break;
    }
    return false;
}

bool DialogBinder::KeyPressed(QLineEdit* box, QKeyEvent* key) {
    const std::optional<KeyPress> press = Translate(*key);
    if (!press) return false;
    const KeyAnswer answer = model_.Key(ControlName(box), *press, CaretOf(*box));
    switch (answer.verdict) {
        case KeyAnswer::Verdict::Pass: {
            if (answer.focus.empty()) return false;
            // The box takes the key now, before the focus moves on.
            QKeyEvent copy(key->type(), key->key(), key->modifiers(), key->text(),
                           key->isAutoRepeat(), key->count());
            delivering_ = box;
            QCoreApplication::sendEvent(box, &copy);
            delivering_ = nullptr;
            break;
        }
        case KeyAnswer::Verdict::Swallow:
            break;
        case KeyAnswer::Verdict::Beep:
            QApplication::beep();
            break;
    }
    if (!answer.focus.empty()) MoveFocus(answer.focus, answer.place);
    return true;
}

void DialogBinder::LeaveBox(QLineEdit* box) {
    if (boxWithFocus_ == box) boxWithFocus_ = nullptr;
    model_.LeaveBox(ControlName(box));
    AfterAction();
}

void DialogBinder::MoveFocus(const std::string& control, KeyAnswer::Place place) {
    QWidget* widget = widgets_.value(QString::fromStdString(control));
    if (widget == nullptr) return;
    TakeFocus(widget);
    auto* box = qobject_cast<QLineEdit*>(widget);
    if (box == nullptr) return;
    switch (place) {
        case KeyAnswer::Place::SelectAll:
            box->selectAll();
            break;
        case KeyAnswer::Place::End:
            box->setCursorPosition(static_cast<int>(box->text().size()));
            break;
        case KeyAnswer::Place::Start:
            box->setCursorPosition(0);
            break;
    }
}

void DialogBinder::TakeFocus(QWidget* widget) {
    QLineEdit* previous = boxWithFocus_;
    if (widget->focusPolicy() != Qt::NoFocus) widget->setFocus(Qt::OtherFocusReason);
    // Outside an active window Qt moves the focus without telling the boxes.
    if (previous != nullptr && previous != widget && boxWithFocus_ == previous) LeaveBox(previous);
    if (auto* box = qobject_cast<QLineEdit*>(widget)) boxWithFocus_ = box;
}

}  // namespace lumacfg::ui
