#include "TopicTableTableViewController.h"

#include "app/FetchOrLog.h"
#include "names/NameRecordList.h"

TopicTableTableViewController::TopicTableTableViewController(AppDelegate& application)
    : m_application(application) {
    connect(&application.services.notes, &Notes::undone, this,
            &TopicTableTableViewController::load);
}

void TopicTableTableViewController::viewDidLoad() {
    load();
}

void TopicTableTableViewController::viewWillAppear() {
    TableViewController::viewWillAppear();
    load();
}

void TopicTableTableViewController::unwindToTopicListWithSegue(Segue* /*segue*/) {
    load();
}

int TopicTableTableViewController::numberOfRowsInSection(int /*section*/) const {
    return int(TopicList.size());
}

double TopicTableTableViewController::heightForRowAtIndexPath(int /*row*/) const {
    return 40;
}

QString TopicTableTableViewController::titleForHeaderInSection(int /*section*/) const {
    return QStringLiteral("# of Topics: %1").arg(TopicList.size());
}

Label* TopicTableTableViewController::viewForHeaderInSection(int /*section*/) {
    return makeCountHeader(QStringLiteral("# Topics: = "), TopicList.size());
}

void TopicTableTableViewController::willDisplayHeaderView(Label& header, int /*section*/) const {
    header.setCentered(true);
}

TableViewCell* TopicTableTableViewController::cellForRowAtIndexPath(int row) {
    auto* cell = tableView()->dequeueReusableCell<TapicTableViewCell>(QStringLiteral("Cell"));
    styleRow(*cell);
    cell->TopicLabel->setText(recordAt(TopicList, row).topic().value_or(QLatin1String("")));
    return cell;
}

void TopicTableTableViewController::didSelectRowAtIndexPath(int row) {
    m_application.services.selection.chosenTopicName =
        recordAt(TopicList, row).topic().value_or(QLatin1String(""));
}

bool TopicTableTableViewController::canEditRowAtIndexPath(int /*row*/) const {
    return true;
}

std::vector<ContextualAction>
TopicTableTableViewController::trailingSwipeActionsConfigurationForRowAtIndexPath(int row) {
    return {{QStringLiteral("delete"), true,
             [this, row] { commitEditingStyle(EditingStyle::Delete, row); }}};
}

void TopicTableTableViewController::commitEditingStyle(EditingStyle style, int row) {
    if (style != EditingStyle::Delete)
        return;
    auto& fetched = fetchedResultsController();
    ManagedObjectContext& context = fetched.managedObjectContext();
    Topics& topic = recordAt(fetched.fetchedObjects(), row);
    context.deleteObject(topic);
    if (const auto error = context.save())
        fatalError(error->unresolved());
    offerUndo(m_application, topic, QStringLiteral("Topic"), topic.topic());
}

void TopicTableTableViewController::controllerWillChangeContent() {
    // The rows must be there before the table asks for those that are new.
    TopicList = fetchedResultsController().fetchedObjects();
    tableView()->beginUpdates();
}

void TopicTableTableViewController::didChangeObject(std::optional<int> row,
                                                    FetchedResultsChangeType type,
                                                    std::optional<int> newRow) {
    switch (type) {
    case FetchedResultsChangeType::Insert:
        tableView()->insertRow(newRow.value());
        break;
    case FetchedResultsChangeType::Delete:
        tableView()->deleteRow(row.value());
        break;
    case FetchedResultsChangeType::Move:
        tableView()->moveRow(row.value(), newRow.value());
        break;
    case FetchedResultsChangeType::Update:
        tableView()->reloadData();
        break;
    }
}

void TopicTableTableViewController::controllerDidChangeContent() {
    tableView()->endUpdates();
}

void TopicTableTableViewController::load() {
    managedObjectContext = &m_application.persistentContainer().viewContext();
    TopicList =
        sortedRecords<Topics>(*managedObjectContext, {{Topics::Keys::topic, true}}, lcNames);
    tableView()->reloadData();
}

FetchedResultsController<Topics>& TopicTableTableViewController::fetchedResultsController() {
    if (!_fetchedResultsController) {
        auto request = Topics::fetchRequest();
        request.sortDescriptors = {{Topics::Keys::topic, true}};
        auto controller = std::make_unique<FetchedResultsController<Topics>>(
            request, *managedObjectContext, *this);
        if (const auto error = controller->performFetch())
            fatalError(error->unresolved());
        _fetchedResultsController = std::move(controller);
    }
    return *_fetchedResultsController;
}
