#pragma once

#include "app/AppDelegate.h"
#include "toolkit/DatePicker.h"
#include "toolkit/Label.h"
#include "toolkit/Switch.h"
#include "toolkit/TextInput.h"

/** The settings: a default date, and the style of date pickers. Each is kept as it changes. */
class DefaultsViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")
    Q_PROPERTY(TextField* dateTextField MEMBER dateTextField CONSTANT)
    Q_PROPERTY(Label* DefaultDateLabel MEMBER DefaultDateLabel CONSTANT)
    Q_PROPERTY(TextField* DefaultDateTextField MEMBER DefaultDateTextField CONSTANT)
    Q_PROPERTY(Switch* DefaultDateSwitch MEMBER DefaultDateSwitch CONSTANT)
    Q_PROPERTY(Switch* DateWheelSwitch MEMBER DateWheelSwitch CONSTANT)
    Q_PROPERTY(Switch* DateInlineSwitch MEMBER DateInlineSwitch CONSTANT)
    Q_PROPERTY(Switch* DateCompactSwitch MEMBER DateCompactSwitch CONSTANT)
    Q_PROPERTY(Label* SelectDPLabel MEMBER SelectDPLabel CONSTANT)
    Q_PROPERTY(Label* UseDateWheelLabel MEMBER UseDateWheelLabel CONSTANT)
    Q_PROPERTY(Label* UseInlineDateLabel MEMBER UseInlineDateLabel CONSTANT)
    Q_PROPERTY(Label* UseCompactDateLabel MEMBER UseCompactDateLabel CONSTANT)

public:
    explicit DefaultsViewController(AppDelegate& application);

    TextField* const dateTextField;
    Label* const DefaultDateLabel;
    TextField* const DefaultDateTextField;
    Switch* const DefaultDateSwitch;
    DatePicker* const datePickerView;
    Switch* const DateWheelSwitch;
    Switch* const DateInlineSwitch;
    Switch* const DateCompactSwitch;
    Label* const SelectDPLabel;
    Label* const UseDateWheelLabel;
    Label* const UseInlineDateLabel;
    Label* const UseCompactDateLabel;
    UserDefaults& userDefaults;
    bool UseDateWheel = false;
    bool UseInlineDate = false;
    bool UseCompactDate = false;

    void viewDidLoad() override;
    void SwitchChanged();
    void DateEntered();
    void dateChanged();
    void doneClick();
    void todayClick();
    Q_INVOKABLE void dismissKeyboard();

private:
    /** A style of date pickers with its switch, settings key and the first system that has it. */
    struct PickerStyle {
        DatePicker::Style style;
        Switch* choice;
        QString key;
        SystemVersion since;
    };

    void loadDefaultDate();
    void loadPickerStyle();
    void showDefaultDate(bool shown);
    void choose(const PickerStyle& chosen);
    void take(Date date);
    std::optional<Date> typedDate() const;
    void takeTypedDate();

    const Environment& m_environment;
    std::vector<PickerStyle> m_styles;
    QString m_lastDateText; ///< of those that could be read
};
