#pragma once

#include "app/AppDelegate.h"
#include "store/Records.h"
#include "toolkit/Button.h"
#include "toolkit/DatePicker.h"
#include "toolkit/PickerView.h"
#include "toolkit/TextInput.h"

#include <array>
#include <vector>

/** The fields of a quote on a screen: what the add form and the quote detail have in common. */
class QuoteForm : public PickerViewDelegate {
public:
    QuoteForm(ViewController& screen, AppDelegate& application);

    TextField* const SourceTextField;
    TextField* const CategoryTextField;
    TextField* const AuthorTextField;
    TextField* const DateAddedTextField;
    TextView* const QuoteTextView;
    DatePicker* const datePickerView;
    PickerView* const TopicPickerView;
    PickerView* const SourcePickerView;
    PickerView* const AuthorPickerView;
    Date QuoteDate; ///< what a save writes
    std::vector<Topics*> TopicList;
    std::vector<Sources*> SourceList;
    std::vector<Authors*> AuthorList;

    /** Makes each picker the input view of its field. */
    void wirePickers();
    void styleFields();
    void fetchTopics();
    void fetchSourcesAndAuthors();

    void DateEntered();
    void doneClick();
    void todayClick();
    /** Return: does in the date what "Done" does, and ends the editing of the names. */
    bool textFieldShouldReturn(TextField& field);
    /** Keeps the quote's text clear of a keyboard of this height; 0 when it goes. */
    void adjustForKeyboardWithNotification(double height);

    /** Whether source, date, topic and author are entered, and the date can be read; shows an alert
     * when not. */
    bool validate();
    /** Whether the user has entered what is not saved. The date that comes with entering its field
     * is not the user's. */
    bool hasUnsavedChanges() const;
    /** What the fields hold counts as saved. */
    void noteSaved();
    /** Writes the fields into a record and saves it. Says so; a failure is logged alone. */
    void save(Event& quote);

    int numberOfComponentsInPickerView(const PickerView& picker) const override;
    int numberOfRowsInComponent(const PickerView& picker, int component) const override;
    QString titleForRow(const PickerView& picker, int row, int component) const override;
    PickerLabel viewForRow(const PickerView& picker, int row, int component) const override;
    void didSelectRow(const PickerView& picker, int row, int component) override;

private:
    void showDate(Date date);
    void takeTypedDate();

    ViewController& m_screen;
    AppDelegate& m_application;
    std::array<TextInput*, 5> inputs() const;

    std::array<QString, 5> m_savedTexts; // of the inputs
    bool m_dateIsChosen = false;
    bool m_datePicked = false;
    bool m_dateIsRead = true; ///< false while the typed one cannot be
};

/** The style of date pickers that the settings ask for, where the system offers it. */
DatePicker::Style datePickerStyle(const UserDefaults& userDefaults, const SystemVersion& version);
