#include "DefaultsViewController.h"

#include "foundation/FatalError.h"
#include "shared/CommonLook.h"

#include <algorithm>

namespace {

const auto useDefaultDate = QStringLiteral("UseDefaultDate");
const auto defaultDate = QStringLiteral("DefaultDate");

Label* label(QObject* parent, const QString& text) {
    auto* made = new Label(parent);
    made->setText(text);
    return made;
}

} // namespace

DefaultsViewController::DefaultsViewController(AppDelegate& application)
    : dateTextField(new TextField(this, QStringLiteral("Date")))
    , DefaultDateLabel(label(this, QStringLiteral("Default date")))
    , DefaultDateTextField(new TextField(this, QStringLiteral("Default date")))
    , DefaultDateSwitch(new Switch(this, QStringLiteral("Use default date")))
    , datePickerView(
          new DatePicker(this, QStringLiteral("Date picker"), application.services.environment))
    , DateWheelSwitch(new Switch(this, QStringLiteral("Wheel")))
    , DateInlineSwitch(new Switch(this, QStringLiteral("Inline")))
    , DateCompactSwitch(new Switch(this, QStringLiteral("Compact")))
    , SelectDPLabel(label(this, QStringLiteral("Date picker style")))
    , UseDateWheelLabel(label(this, QStringLiteral("Wheel")))
    , UseInlineDateLabel(label(this, QStringLiteral("Inline")))
    , UseCompactDateLabel(label(this, QStringLiteral("Compact")))
    , userDefaults(application.services.userDefaults)
    , m_environment(application.services.environment)
    // A chosen compact style asks for a newer system than a stored one does.
    , m_styles{
          {DatePicker::Wheels, DateWheelSwitch, QStringLiteral("UseDateWheel"), {13, 4}},
          {DatePicker::Inline, DateInlineSwitch, QStringLiteral("UseDateInline"), {14, 0}},
          {DatePicker::Compact, DateCompactSwitch, QStringLiteral("UseDateCompact"), {14, 0}}} {
    showDefaultDate(false);
    connect(DefaultDateSwitch, &Switch::valueChanged, this, &DefaultsViewController::SwitchChanged);
    for (const PickerStyle& style : m_styles)
        connect(style.choice, &Switch::valueChanged, this, [this, &style] { choose(style); });
    connect(dateTextField, &TextInput::editingDidBegin, this, &DefaultsViewController::DateEntered);
    connect(dateTextField, &TextInput::entered, this, &DefaultsViewController::takeTypedDate);
    connect(dateTextField, &TextInput::editingChanged, this, [this] {
        if (!dateTextField->isEditing() && !typedDate())
            dateTextField->setText(m_lastDateText); // rather than a text that none can read
    });
    dateTextField->shouldReturn = [this] {
        doneClick();
        return false;
    };
}

void DefaultsViewController::viewDidLoad() {
    styleFormField(*dateTextField);
    styleFormField(*DefaultDateTextField);
    datePickerView->setHidden(false);
    loadDefaultDate();
    dateTextField->setInputView(datePickerView);
    loadPickerStyle();
}

void DefaultsViewController::SwitchChanged() {
    const bool isOn = DefaultDateSwitch->isOn();
    showDefaultDate(isOn);
    userDefaults.setBool(useDefaultDate, isOn);
    if (isOn)
        return;
    userDefaults.setText(defaultDate, QLatin1String(""));
    DefaultDateTextField->setText(QString());
}

void DefaultsViewController::DateEntered() {
    datePickerView->setHidden(false);
    if (!dateTextField->inputAccessoryView()) {
        addDateToolbar(
            *dateTextField, [this] { todayClick(); }, [this] { doneClick(); });
        connect(datePickerView, &DatePicker::valueChanged, this,
                &DefaultsViewController::dateChanged);
    }
    if (dateTextField->text().isEmpty())
        return;
    const auto date = typedDate();
    if (!date)
        fatalError(
            QStringLiteral("The date cannot be read: \"%1\"").arg(dateTextField->text().left(100)));
    datePickerView->setDate(*date);
}

void DefaultsViewController::dateChanged() {
    take(datePickerView->date());
}

void DefaultsViewController::doneClick() {
    take(datePickerView->date());
    endEditing();
}

void DefaultsViewController::todayClick() {
    take(m_environment.now());
    endEditing();
}

void DefaultsViewController::dismissKeyboard() {
    endEditing();
}

void DefaultsViewController::loadDefaultDate() {
    if (!userDefaults.object(useDefaultDate)) {
        userDefaults.setBool(useDefaultDate, false);
        return;
    }
    const bool isOn = userDefaults.strictBoolForKey(useDefaultDate);
    DefaultDateSwitch->setOn(isOn);
    showDefaultDate(isOn);
    if (!isOn)
        DefaultDateTextField->setText(QString());
    else if (const auto text = userDefaults.textForKey(defaultDate))
        DefaultDateTextField->setText(*text);
}

void DefaultsViewController::loadPickerStyle() {
    const auto load = [this](const QString& key, DatePicker::Style style, Switch* choice) {
        if (!userDefaults.object(key) || !userDefaults.boolForKey(key))
            return false;
        datePickerView->setStyle(style);
        for (const PickerStyle& each : m_styles)
            each.choice->setOn(each.choice == choice);
        return true;
    };
    if (m_environment.systemVersion < SystemVersion{13, 4}) {
        for (View* view :
             std::initializer_list<View*>{DateWheelSwitch, UseDateWheelLabel, DateCompactSwitch,
                                          UseCompactDateLabel, SelectDPLabel})
            view->setHidden(true);
    } else {
        if (load(QStringLiteral("UseDateWheel"), DatePicker::Wheels, DateWheelSwitch)) {
            UseDateWheel = true;
            UseInlineDate = false;
            UseCompactDate = false;
        }
        load(QStringLiteral("UseDateCompact"), DatePicker::Compact, DateCompactSwitch);
    }
    if (m_environment.systemVersion < SystemVersion{14, 0}) {
        DateInlineSwitch->setHidden(true);
        UseInlineDateLabel->setHidden(true);
    } else if (load(QStringLiteral("UseDateInline"), DatePicker::Inline, DateInlineSwitch)) {
        UseInlineDate = true;
        UseDateWheel = false;
        UseCompactDate = false;
    }
}

void DefaultsViewController::showDefaultDate(bool shown) {
    DefaultDateLabel->setHidden(!shown);
    DefaultDateTextField->setHidden(!shown);
}

void DefaultsViewController::choose(const PickerStyle& chosen) {
    // Turned off, a style stays the stored one until another is turned on.
    if (!chosen.choice->isOn())
        return;
    showDefaultDate(true);
    for (const PickerStyle& style : m_styles) {
        style.choice->setOn(&style == &chosen);
        userDefaults.setBool(style.key, &style == &chosen);
    }
    if (m_environment.systemVersion >= chosen.since)
        datePickerView->setStyle(chosen.style);
}

void DefaultsViewController::take(Date date) {
    const QString text = formatDate(date, DateStyle::Medium, m_environment);
    m_lastDateText = text;
    dateTextField->setText(text);
    userDefaults.setText(defaultDate, text);
}

std::optional<Date> DefaultsViewController::typedDate() const {
    return parseDate(dateTextField->text(), DateStyle::Medium, m_environment);
}

void DefaultsViewController::takeTypedDate() {
    const auto date = typedDate();
    if (!date)
        return;
    datePickerView->setDate(*date);
    m_lastDateText = formatDate(*date, DateStyle::Medium, m_environment);
    userDefaults.setText(defaultDate, m_lastDateText);
}
