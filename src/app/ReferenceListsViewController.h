#pragma once

#include "toolkit/Button.h"
#include "toolkit/ViewController.h"

/** A second menu, of the author, source and topic lists. */
class ReferenceListsViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")
    Q_PROPERTY(Button* AuthorsButton MEMBER AuthorsButton CONSTANT)
    Q_PROPERTY(Button* SourcesButton MEMBER SourcesButton CONSTANT)
    Q_PROPERTY(Button* TopicsButton MEMBER TopicsButton CONSTANT)

public:
    ReferenceListsViewController();

    Button* const AuthorsButton;
    Button* const SourcesButton;
    Button* const TopicsButton;

    void viewDidLoad() override;
};
