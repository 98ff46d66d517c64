#include "ReferenceListsViewController.h"

ReferenceListsViewController::ReferenceListsViewController()
    : AuthorsButton(new Button(this, QStringLiteral("Authors")))
    , SourcesButton(new Button(this, QStringLiteral("Sources")))
    , TopicsButton(new Button(this, QStringLiteral("Topics"))) {}

void ReferenceListsViewController::viewDidLoad() {
    for (Button* button : {AuthorsButton, SourcesButton, TopicsButton}) {
        button->setCornerRadius(10);
        button->setBorderWidth(2);
    }
}
