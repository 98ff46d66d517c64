#include "NameForms.h"

void saveNames(ManagedObjectContext& context, const AppDelegate& application) {
    if (const auto error = context.save())
        qCWarning(lcNames) << error->description;
    else
        application.services.notes.say(QStringLiteral("Saved"));
}

AddAuthorViewController::AddAuthorViewController(AppDelegate& application)
    : AuthorTextField(new TextField(this, QStringLiteral("Author")))
    , m_application(application) {}

void AddAuthorViewController::viewDidLoad() {
    styleFormField(*AuthorTextField);
    noteSaved();
}

void AddAuthorViewController::SaveAuthor() {
    addName<Authors>(*this, m_application, AuthorTextField->text(), managedObjectContext);
}

AddSourceViewController::AddSourceViewController(AppDelegate& application)
    : SourceTextField(new TextField(this, QStringLiteral("Source")))
    , m_application(application) {}

void AddSourceViewController::viewDidLoad() {
    styleFormField(*SourceTextField);
    noteSaved();
}

void AddSourceViewController::SaveSource() {
    addName<Sources>(*this, m_application, SourceTextField->text(), managedObjectContext);
}

TopicViewController::TopicViewController(AppDelegate& application)
    : TopicTextField(new TextField(this, QStringLiteral("Topic")))
    , SaveButton(new Button(this, QStringLiteral("Save")))
    , m_application(application) {
    connect(SaveButton, &Button::touchUpInside, this, &TopicViewController::SaveTopic);
}

void TopicViewController::viewDidLoad() {
    setTitle(QStringLiteral("Add Topic"));
    TopicTextField->beginEditing();
    styleFormField(*TopicTextField);
    TopicTextField->setBorderColor(black);
    styleButton(*SaveButton);
    noteSaved();
}

void TopicViewController::touchesBegan() {
    dismissKeyboard();
}

void TopicViewController::dismissKeyboard() {
    endEditing();
}

void TopicViewController::SaveTopic() {
    addName<Topics>(*this, m_application, TopicTextField->text(), managedObjectContext);
}

EditAuthorViewController::EditAuthorViewController(AppDelegate& application)
    : AuthorTextField(new TextField(this, QStringLiteral("Author")))
    , m_application(application) {}

void EditAuthorViewController::viewDidLoad() {
    edit = beginNameEdit<Authors>(*AuthorTextField, m_application);
    noteSaved();
}

void EditAuthorViewController::touchesBegan() {
    endEditing();
}

void EditAuthorViewController::SaveAuthor() {
    saveNameEdit(*this, m_application, edit, AuthorTextField->text());
}

EditSourceViewController::EditSourceViewController(AppDelegate& application)
    : SourceTextField(new TextField(this, QStringLiteral("Source")))
    , m_application(application) {}

void EditSourceViewController::viewDidLoad() {
    edit = beginNameEdit<Sources>(*SourceTextField, m_application);
    noteSaved();
}

void EditSourceViewController::touchesBegan() {
    endEditing();
}

void EditSourceViewController::SaveSource() {
    saveNameEdit(*this, m_application, edit, SourceTextField->text());
}

EditTopicViewController::EditTopicViewController(AppDelegate& application)
    : TopicTextField(new TextField(this, QStringLiteral("Topic")))
    , m_application(application) {}

void EditTopicViewController::viewDidLoad() {
    setTitle(QStringLiteral("Edit Topic"));
    edit = beginNameEdit<Topics>(*TopicTextField, m_application);
    noteSaved();
}

void EditTopicViewController::touchesBegan() {
    endEditing();
}

void EditTopicViewController::SaveButtonTapped() {
    saveNameEdit(*this, m_application, edit, TopicTextField->text());
}
