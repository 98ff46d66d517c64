#pragma once

#include <QString>

/** The screens, as the storyboard knows them. A way forward is called after where it leads. */
namespace scenes {
inline constexpr QLatin1String mainMenu("MainMenuViewController");
inline constexpr QLatin1String referenceLists("ReferenceListsViewController");
inline constexpr QLatin1String groups("TabBarController");
inline constexpr QLatin1String quotes("MasterViewController");
inline constexpr QLatin1String quotesByTopic("NewViewTableViewController");
inline constexpr QLatin1String addQuote("AddQuote");
inline constexpr QLatin1String quote("DetailViewController");
inline constexpr QLatin1String fullScreen("QuoteFullScreenViewController");
inline constexpr QLatin1String importFile("ImportViewController");
inline constexpr QLatin1String exportFile("ExportViewController");
inline constexpr QLatin1String printQuotes("PrintQuoteViewController");
inline constexpr QLatin1String rateShare("RateShareTableViewController");
inline constexpr QLatin1String settings("DefaultsViewController");

inline constexpr QLatin1String authors("AuthorTableViewController");
inline constexpr QLatin1String authorBreakdown("AuthorBreakdownTableViewController");
inline constexpr QLatin1String authorNames("NewAuthorTableViewController");
inline constexpr QLatin1String addAuthor("AddAuthorViewController");
inline constexpr QLatin1String editAuthor("EditAuthorViewController");
inline constexpr QLatin1String sources("SourceTableViewController");
inline constexpr QLatin1String sourceBreakdown("SourceBreakdownTableViewController");
inline constexpr QLatin1String sourceNames("NewSourceTableViewController");
inline constexpr QLatin1String addSource("AddSourceViewController");
inline constexpr QLatin1String editSource("EditSourceViewController");
inline constexpr QLatin1String topics("TopicTableViewController");
inline constexpr QLatin1String topicBreakdown("TopicBreakdownTableViewController");
inline constexpr QLatin1String topicNames("TopicTableTableViewController");
inline constexpr QLatin1String addTopic("TopicViewController");
inline constexpr QLatin1String editTopic("EditTopicViewController");
} // namespace scenes

/** The ways back. */
namespace unwinds {
inline constexpr QLatin1String toMainMenu("unwindToMainMenu");
inline constexpr QLatin1String toQuotes("unwindToMainList");
inline constexpr QLatin1String toOpeningQuotes("unwindToMenu");
inline constexpr QLatin1String toAuthors("unwindToAuthorTableView");
inline constexpr QLatin1String toSources("unwindToSourceTableView");
inline constexpr QLatin1String toTopics("unwindToTopicTableView");
inline constexpr QLatin1String toAuthorNames("unwindToAuthorList");
inline constexpr QLatin1String toSourceNames("unwindToSourceList");
inline constexpr QLatin1String toTopicNames("unwindToTopicList");
} // namespace unwinds

/** What `callingScreen` calls the screens that open others. */
namespace callers {
inline constexpr QLatin1String menu("Menu");
inline constexpr QLatin1String quotes("MainList"); ///< from its loading on
inline constexpr QLatin1String chosenQuote("Master");
inline constexpr QLatin1String authorBreakdown("AuthorBreakdown");
inline constexpr QLatin1String sourceBreakdown("SourceBreakdown");
inline constexpr QLatin1String topicBreakdown("TopicBreakdown");
inline constexpr QLatin1String authorNames("NewAuthor");
inline constexpr QLatin1String sourceNames("NewSource");
} // namespace callers
