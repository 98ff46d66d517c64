#include "NameScenes.h"

#include "names/Breakdowns.h"
#include "names/BrowseLists.h"
#include "names/NameForms.h"
#include "names/RecordLists.h"
#include "names/TopicTableTableViewController.h"
#include "toolkit/Storyboard.h"
#include "ui/EmptyStates.h"

namespace {

/** Wires a list of names to the breakdown of a row and to the records of its kind. */
template <class List>
auto wireNameList(const QString& breakdown, const QString& records) {
    return [=](ViewController& controller) {
        auto& list = *qobject_cast<List*>(&controller);
        list.rowSegue = breakdown;
        list.tableView()->setEmptyState(
            noQuotes(list, QStringLiteral("The names in your quotes stand here.")));
        NavigationItem* item = list.navigationItem();
        item->addRightBarButtonItem(list.list.SortButton);
        item->addRightBarButtonItem(QStringLiteral("Names"),
                                    [&list, records] { list.performSegue(records, &list); });
        // For the first screen of a stack, which has nothing of its own to go back to.
        item->setBackBarButtonItem(
            new BarButtonItem(&list, QStringLiteral("Back"), [&list] { list.list.UnwindSegue(); }));
    };
}

template <class Screen>
void wireBreakdown(ViewController& controller) {
    auto& screen = *qobject_cast<Screen*>(&controller);
    screen.rowSegue = QStringLiteral("DetailViewController");
    NavigationItem* item = screen.navigationItem();
    item->addRightBarButtonItem(screen.quotes.SortButton);
    item->addRightBarButtonItem(screen.quotes.PrintButton);
}

/** Wires a list of name records to the forms that add one and edit one. */
auto wireRecordList(const QString& addForm, const QString& editForm) {
    return [=](ViewController& controller) {
        auto& screen = *qobject_cast<TableViewController*>(&controller);
        screen.rowSegue = editForm;
        controller.navigationItem()->addRightBarButtonItem(
            QStringLiteral("Add"),
            [&controller, addForm] { controller.performSegue(addForm, &controller); });
        screen.tableView()->setEmptyState(noNames(screen, addForm));
    };
}

/** Puts the saving of a form into its navigation bar. */
template <class Form>
auto wireForm(void (Form::*save)()) {
    return [save](ViewController& controller) {
        if (!save)
            return;
        auto* form = qobject_cast<Form*>(&controller);
        form->navigationItem()->addRightBarButtonItem(QStringLiteral("Save"),
                                                      [form, save] { (form->*save)(); });
    };
}

/** The screens about one kind of names, and what tells their wiring from that of the others. */
struct NameScenes {
    QString recordsTitle;
    QString records;
    QString addForm;
};

template <class Record, class List, class Breakdown, class Records, class AddForm, class EditForm>
void addScenesOf(const NameScenes& names, void (AddForm::*add)(), void (EditForm::*save)(),
                 Storyboard& storyboard, AppDelegate& application) {
    const QString noun = QLatin1String(NameKind<Record>::noun);
    const QString unwind = QLatin1String(NameKind<Record>::unwindToList);
    const QString list = noun + QStringLiteral("TableViewController");
    const QString breakdown = noun + QStringLiteral("BreakdownTableViewController");
    const QString editForm = QStringLiteral("Edit%1ViewController").arg(noun);
    const auto toRecords = SegueDescription::unwind(unwind, unwind + QStringLiteral("WithSegue"));

    storyboard.add({list,
                    noun + QLatin1Char('s'),
                    QStringLiteral("NameListView"),
                    [&] { return std::make_unique<List>(application); },
                    {SegueDescription::show(breakdown), SegueDescription::show(names.records),
                     SegueDescription::unwind(QStringLiteral("unwindToMainMenu"),
                                              QStringLiteral("unwindToMainMenuWithSegue"))},
                    wireNameList<List>(breakdown, names.records)});
    storyboard.add({breakdown,
                    QString(),
                    QStringLiteral("RowsView"),
                    [&] { return std::make_unique<Breakdown>(application); },
                    {SegueDescription::show(QStringLiteral("DetailViewController")),
                     SegueDescription::show(QStringLiteral("PrintQuoteViewController"))},
                    wireBreakdown<Breakdown>});
    storyboard.add({names.records,
                    names.recordsTitle,
                    QStringLiteral("RowsView"),
                    [&] { return std::make_unique<Records>(application); },
                    {SegueDescription::show(names.addForm), SegueDescription::show(editForm)},
                    wireRecordList(names.addForm, editForm)});
    storyboard.add({names.addForm,
                    QStringLiteral("Add ") + noun,
                    QStringLiteral("ControlsView"),
                    [&] { return std::make_unique<AddForm>(application); },
                    {toRecords},
                    wireForm(add)});
    storyboard.add({editForm,
                    QStringLiteral("Edit ") + noun,
                    QStringLiteral("ControlsView"),
                    [&] { return std::make_unique<EditForm>(application); },
                    {toRecords},
                    wireForm(save)});
}

} // namespace

void addNameScenes(Storyboard& storyboard, AppDelegate& application) {
    addScenesOf<Authors, AuthorTableViewController, AuthorBreakdownTableViewController,
                NewAuthorTableViewController>(
        {QStringLiteral("Author Names"), QStringLiteral("NewAuthorTableViewController"),
         QStringLiteral("AddAuthorViewController")},
        &AddAuthorViewController::SaveAuthor, &EditAuthorViewController::SaveAuthor, storyboard,
        application);
    addScenesOf<Sources, SourceTableViewController, SourceBreakdownTableViewController,
                NewSourceTableViewController>(
        {QStringLiteral("Source Names"), QStringLiteral("NewSourceTableViewController"),
         QStringLiteral("AddSourceViewController")},
        &AddSourceViewController::SaveSource, &EditSourceViewController::SaveSource, storyboard,
        application);
    // The form that adds a topic has its button on the form.
    addScenesOf<Topics, TopicTableViewController, TopicBreakdownTableViewController,
                TopicTableTableViewController, TopicViewController>(
        {QStringLiteral("Topics"), QStringLiteral("TopicTableTableViewController"),
         QStringLiteral("TopicViewController")},
        nullptr, &EditTopicViewController::SaveButtonTapped, storyboard, application);
}
