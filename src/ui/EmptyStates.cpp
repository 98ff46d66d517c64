#include "EmptyStates.h"

#include "shared/Screens.h"
#include "toolkit/NavigationController.h"
#include "toolkit/Storyboard.h"

namespace {

EmptyState::Step opening(const QString& title, TableViewController& list, const QString& scene) {
    return {title, [&list, scene] {
                list.navigationController()->pushViewController(
                    list.storyboard()->instantiate(scene));
            }};
}

} // namespace

EmptyState noQuotes(TableViewController& list, const QString& what) {
    return {QStringLiteral("No quotes yet"),
            what,
            {opening(QStringLiteral("Add New Quote"), list, scenes::addQuote),
             opening(QStringLiteral("Import"), list, scenes::importFile)}};
}

EmptyState noNames(TableViewController& list, const QString& addForm) {
    return {
        QStringLiteral("No names yet"),
        QStringLiteral("Names that you add stand here, and in the pickers of the forms."),
        {{QStringLiteral("Add a name"), [&list, addForm] { list.performSegue(addForm, &list); }}}};
}
