#pragma once

#include "names/NameForm.h"
#include "toolkit/Button.h"

/** The form on which an author is added. */
class AddAuthorViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit AddAuthorViewController(AppDelegate& application);

    TextField* const AuthorTextField;
    ManagedObjectContext* managedObjectContext = nullptr; ///< from a save on

    void viewDidLoad() override;
    void SaveAuthor();

private:
    AppDelegate& m_application;
};

/** The form on which a source is added. */
class AddSourceViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit AddSourceViewController(AppDelegate& application);

    TextField* const SourceTextField;
    ManagedObjectContext* managedObjectContext = nullptr; ///< from a save on

    void viewDidLoad() override;
    void SaveSource();

private:
    AppDelegate& m_application;
};

/** The form on which a topic is added. */
class TopicViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit TopicViewController(AppDelegate& application);

    TextField* const TopicTextField;
    Button* const SaveButton;
    ManagedObjectContext* managedObjectContext = nullptr; ///< from a save on

    void viewDidLoad() override;
    void touchesBegan() override;
    void dismissKeyboard();
    void SaveTopic();

private:
    AppDelegate& m_application;
};

/** The form on which an author is renamed; quotes keep the old name. */
class EditAuthorViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit EditAuthorViewController(AppDelegate& application);

    TextField* const AuthorTextField;
    NameEdit<Authors> edit;

    void viewDidLoad() override;
    void touchesBegan() override;
    void SaveAuthor();

private:
    AppDelegate& m_application;
};

/** The form on which a source is renamed; quotes keep the old name. */
class EditSourceViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit EditSourceViewController(AppDelegate& application);

    TextField* const SourceTextField;
    NameEdit<Sources> edit;

    void viewDidLoad() override;
    void touchesBegan() override;
    void SaveSource();

private:
    AppDelegate& m_application;
};

/** The form on which a topic is renamed; quotes keep the old name. */
class EditTopicViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit EditTopicViewController(AppDelegate& application);

    TextField* const TopicTextField;
    NameEdit<Topics> edit;

    void viewDidLoad() override;
    void touchesBegan() override;
    void SaveButtonTapped();

private:
    AppDelegate& m_application;
};
