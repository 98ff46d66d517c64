#include "AddViewController.h"

#include "app/FetchOrLog.h"
#include "shared/CommonLook.h"
#include "shared/Screens.h"

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcQuotes)

AddViewController::AddViewController(AppDelegate& application)
    : form(*this, application)
    , SourceTextField(form.SourceTextField)
    , CategoryTextField(form.CategoryTextField)
    , AuthorTextField(form.AuthorTextField)
    , DateAddedTextField(form.DateAddedTextField)
    , QuoteTextView(form.QuoteTextView)
    , TopicButton(new Button(this, QStringLiteral("Topic list")))
    , SourcesButton(new Button(this, QStringLiteral("Source list")))
    , AuthorsButton(new Button(this, QStringLiteral("Author list")))
    , m_application(application) {}

void AddViewController::viewDidLoad() {
    // The record lists that the form leads to write the calling screen too.
    m_openedBy = m_application.services.selection.callingScreen;
    form.wirePickers();
    const Keyboard& keyboard = m_application.services.keyboard;
    connect(&keyboard, &Keyboard::willChangeFrame, this,
            [this](double height) { form.adjustForKeyboardWithNotification(height); });
    connect(&keyboard, &Keyboard::willHide, this,
            [this] { form.adjustForKeyboardWithNotification(0); });
    for (Button* button : {TopicButton, SourcesButton, AuthorsButton}) {
        button->setCornerRadius(5);
        button->setBorderWidth(2);
    }
    TopicButton->setBorderColor(black);
    form.styleFields();
    form.fetchTopics();
    form.fetchSourcesAndAuthors();
}

void AddViewController::viewWillAppear() {
    form.fetchTopics();
}

void AddViewController::dismissKeyboard() {
    endEditing();
}

void AddViewController::SaveQuote() {
    if (!form.validate())
        return;
    form.save(*m_application.persistentContainer().viewContext().insert<Event>());
    leave();
}

void AddViewController::leave() {
    qCInfo(lcQuotes) << "Back button Clicked";
    for (TextInput* field :
         std::initializer_list<TextInput*>{SourceTextField, CategoryTextField, AuthorTextField,
                                           DateAddedTextField, QuoteTextView})
        field->setText(QString());
    form.noteSaved();
    if (m_openedBy == callers::chosenQuote)
        performSegue(unwinds::toQuotes, this);
    else if (m_openedBy == callers::menu)
        performSegue(unwinds::toMainMenu, this);
}
