#include "store/EntityTable.h"

#include "foundation/FatalError.h"

#include <QVarLengthArray>

#include <algorithm>
#include <numeric>
#include <ranges>
#include <unordered_map>
#include <variant>

namespace {

Column makeColumn(AttributeKind kind) {
    switch (kind) {
    case AttributeKind::Name:
        return NameColumn();
    case AttributeKind::Text:
        return TextColumn();
    case AttributeKind::Moment:
        break;
    }
    return DateColumn();
}

} // namespace

EntityTable::EntityTable(std::size_t entity)
    : m_entity(entity) {
    for (const auto& attribute : schema()[entity].attributes)
        m_columns.push_back(makeColumn(attribute.kind));
}

std::optional<StoreError> EntityTable::refresh(bool withValues) {
    if (m_connection == nullptr)
        return StoreError{QStringLiteral("The store is not loaded"), QStringLiteral("{}")};
    const auto changes = m_connection->changeCount(m_entity);
    const auto wanted = std::max(m_contents, withValues ? Contents::Values : Contents::Identities);
    if (m_contents == wanted && m_seenChanges == changes)
        return std::nullopt;

    std::vector<bool> isFound(rowCount());
    if (readRows(wanted == Contents::Values, isFound) != SQLITE_DONE)
        return m_connection->error(QStringLiteral("read"));
    for (Row row = 0; row < isFound.size(); ++row) {
        if (m_states[row].isOnDisk && !isFound[row]) {
            markDeleted(row);
            m_states[row].isOnDisk = false;
        }
    }
    m_contents = wanted;
    m_seenChanges = changes;
    return std::nullopt;
}

int EntityTable::readRows(bool withValues, std::vector<bool>& isFound) {
    std::unordered_map<std::int64_t, Row> known;
    for (Row row = 0; row < rowCount(); ++row)
        known.emplace(m_ids[row], row);
    auto& statements = m_connection->statements(m_entity);
    auto& select = withValues ? statements.selectAll : statements.selectIds;
    const int idColumn = withValues ? int(m_columns.size()) : 0;
    int code = select.step();
    for (; code == SQLITE_ROW; code = select.step()) {
        const auto id = select.integer(idColumn).value_or(0);
        const auto place = known.find(id);
        const Row row = place == known.end() ? append(id) : place->second;
        if (place != known.end())
            isFound[row] = true;
        auto& state = m_states[row];
        state.isOnDisk = true;
        if (withValues && !state.isUpdated && !state.isDeleted) {
            for (std::size_t i = 0; i < m_columns.size(); ++i)
                std::visit([&](auto& column) { column.read(row, select, int(i)); }, m_columns[i]);
            for (auto& [attributes, combinations] : m_combinations)
                combinations.noteChange(row);
        }
    }
    select.reset();
    m_connection->releaseMemory();
    return code;
}

std::vector<Row> EntityTable::rows(const std::vector<AttributeOrder>& order,
                                   const std::vector<AttributeEquals>& tests) const {
    auto candidates = rowsOfNames(tests);
    if (!candidates) {
        candidates.emplace(rowCount());
        std::iota(candidates->begin(), candidates->end(), Row(0));
    }
    std::vector<Row> result = std::move(*candidates);
    std::erase_if(result, [this](Row row) { return isDeleted(row); });
    for (const auto& test : tests) {
        if (std::holds_alternative<NameColumn>(m_columns[test.attribute]))
            continue;
        const auto passes =
            std::visit([&](const auto& column) { return column.equalTo(test.value); },
                       m_columns[test.attribute]);
        std::erase_if(result, [&](Row row) { return !passes(row); });
    }
    for (const auto& key : std::views::reverse(order)) {
        std::visit([&](const auto& column) { column.sort(result, key.ascending); },
                   m_columns[key.attribute]);
    }
    return result;
}

std::optional<std::vector<Row>>
EntityTable::rowsOfNames(const std::vector<AttributeEquals>& tests) const {
    constexpr std::uint64_t digit = 16;
    std::uint64_t attributes = 0;
    QVarLengthArray<const NameColumn*, 4> columns;
    QVarLengthArray<std::uint32_t, 4> numbers;
    const std::vector<Row>* fewest = nullptr;
    for (const auto& test : tests) {
        const auto* names = std::get_if<NameColumn>(&m_columns[test.attribute]);
        if (names == nullptr)
            continue;
        attributes = digit * attributes + test.attribute + 1;
        columns.append(names);
        numbers.append(names->knownNumber(std::get<QString>(test.value)));
        const auto& rows = names->rows(numbers.back());
        if (fewest == nullptr || rows.size() < fewest->size())
            fewest = &rows;
    }
    if (fewest == nullptr)
        return std::nullopt;
    constexpr std::size_t few = 16;
    std::vector<Row> found;
    if (columns.size() < 2 || fewest->size() <= few) {
        found = *fewest;
    } else {
        auto known = m_combinations.find(attributes);
        if (known == m_combinations.end())
            known = m_combinations.emplace(attributes, std::vector(columns.begin(), columns.end()))
                        .first;
        found = known->second.rows(numbers, rowCount());
    }
    std::erase_if(found, [&](Row row) {
        return !std::ranges::equal(columns, numbers, {},
                                   [row](const NameColumn* names) { return names->number(row); });
    });
    return found;
}

std::size_t EntityTable::count(const std::vector<AttributeEquals>& tests) const {
    // One name is counted by its index alone.
    if (tests.size() == 1) {
        const auto& test = tests.front();
        if (const auto* names = std::get_if<NameColumn>(&m_columns[test.attribute]))
            return names->rows(names->knownNumber(std::get<QString>(test.value))).size();
    }
    return rows({}, tests).size();
}

QStringList EntityTable::distinctNames(std::size_t attribute, const std::vector<Row>& rows) const {
    return std::get<NameColumn>(m_columns[attribute]).distinct(rows);
}

Row EntityTable::insert() {
    needValues();
    const Row row = append(m_connection->takeId(m_entity));
    m_changed.push_back(row);
    return row;
}

void EntityTable::remove(Row row) {
    if (isDeleted(row))
        return;
    if (!m_states[row].needsWriting())
        m_changed.push_back(row);
    markDeleted(row);
}

void EntityTable::restore(Row row) {
    if (!isDeleted(row))
        return;
    for (auto& column : m_columns)
        std::visit([row](auto& values) { values.remember(row); }, column);
    m_states[row].isDeleted = false;
    // While the removal was not saved, the row is among the changed ones already.
    if (m_states[row].needsWriting() && std::ranges::find(m_changed, row) == m_changed.end())
        m_changed.push_back(row);
}

std::optional<QString> EntityTable::text(Row row, std::size_t attribute) {
    needValues();
    if (const auto* names = std::get_if<NameColumn>(&m_columns[attribute]))
        return names->value(row);
    return std::get<TextColumn>(m_columns[attribute]).value(row);
}

std::optional<QByteArrayView> EntityTable::utf8(Row row, std::size_t attribute) {
    needValues();
    if (const auto* names = std::get_if<NameColumn>(&m_columns[attribute]))
        return names->bytes(row);
    return std::get<TextColumn>(m_columns[attribute]).bytes(row);
}

std::optional<Date> EntityTable::date(Row row, std::size_t attribute) {
    needValues();
    return std::get<DateColumn>(m_columns[attribute]).value(row);
}

template <class Kind, class Value>
void EntityTable::set(Row row, std::size_t attribute, const Value& value) {
    auto& column = std::get<Kind>(m_columns[attribute]);
    if (m_before && row < m_before->rowCount) {
        const Change change{row, attribute, column.keep(row), m_states[row]};
        if (!column.set(row, value))
            return;
        m_before->changes.push_back(change);
    } else if (!column.set(row, value)) {
        return;
    }
    markUpdated(row);
    for (auto& [attributes, combinations] : m_combinations)
        combinations.noteChange(row);
}

void EntityTable::setText(Row row, std::size_t attribute, const std::optional<QString>& text) {
    needValues();
    if (isDeleted(row))
        return;
    if (std::holds_alternative<NameColumn>(m_columns[attribute]))
        set<NameColumn>(row, attribute, text);
    else
        set<TextColumn>(row, attribute, text);
}

void EntityTable::setDate(Row row, std::size_t attribute, std::optional<Date> date) {
    needValues();
    if (!isDeleted(row))
        set<DateColumn>(row, attribute, date);
}

bool EntityTable::foldSome(std::size_t attribute, qsizetype bytes) {
    needValues();
    return std::get<TextColumn>(m_columns[attribute]).foldSome(bytes);
}

RowTest EntityTable::containing(std::size_t attribute, const QString& foldedSearchText) {
    needValues();
    if (const auto* names = std::get_if<NameColumn>(&m_columns[attribute]))
        return names->containing(foldedSearchText);
    return std::get<TextColumn>(m_columns[attribute]).containing(foldedSearchText);
}

bool EntityTable::hasChanges() const {
    return std::any_of(m_changed.begin(), m_changed.end(),
                       [this](Row row) { return m_states[row].needsWriting(); });
}

bool EntityTable::hasNotedChanges() const {
    return std::any_of(m_changed.begin(), m_changed.begin() + std::ptrdiff_t(m_notedCount),
                       [this](Row row) { return m_states[row].needsWriting(); });
}

int EntityTable::writeNoted(std::size_t most) {
    for (; most > 0 && m_writtenCount < m_notedCount; --most, ++m_writtenCount) {
        const Row row = m_changed[m_writtenCount];
        if (!m_states[row].needsWriting())
            continue;
        if (const int code = write(row); code != SQLITE_DONE)
            return code;
    }
    return SQLITE_DONE;
}

void EntityTable::beginKeeping() {
    needValues();
    m_before = Before{rowCount(), m_changed.size(), m_notedCount, {}};
}

void EntityTable::endKeeping() {
    m_before.reset();
    for (auto& column : m_columns)
        std::visit([](auto& values) { values.endKeeping(); }, column);
}

void EntityTable::takeBack() {
    for (const Change& change : std::views::reverse(m_before->changes)) {
        std::visit(
            [&change](auto& column) {
                using Kept = typename std::remove_reference_t<decltype(column)>::Kept;
                column.giveBack(change.row, std::get<Kept>(change.value));
            },
            m_columns[change.attribute]);
        m_states[change.row] = change.state;
        for (auto& [attributes, combinations] : m_combinations)
            combinations.noteChange(change.row);
    }
    // From the last on, which is taken out of an index fastest.
    for (auto row = Row(rowCount()); row > m_before->rowCount; --row)
        markDeleted(row - 1);
    m_changed.resize(m_before->changedCount);
    m_notedCount = m_before->notedCount;
    m_writtenCount = 0;
    endKeeping();
}

void EntityTable::finishNoted() {
    if (hasNotedChanges()) {
        // What others changed before is still to be seen.
        const bool isCurrent = m_seenChanges == m_connection->changeCount(m_entity);
        m_connection->countChange(m_entity);
        if (isCurrent)
            m_seenChanges = m_connection->changeCount(m_entity);
    }
    const auto end = m_changed.begin() + std::ptrdiff_t(m_notedCount);
    for (auto place = m_changed.begin(); place != end; ++place) {
        auto& state = m_states[*place];
        state.isUpdated = false;
        state.isOnDisk = !state.isDeleted;
    }
    m_changed.erase(m_changed.begin(), end);
    m_notedCount = 0;
    m_writtenCount = 0;
}

Row EntityTable::append(std::int64_t id) {
    m_ids.push_back(id);
    m_states.emplace_back();
    for (auto& column : m_columns)
        std::visit([this](auto& values) { values.resize(m_ids.size()); }, column);
    return Row(m_ids.size() - 1);
}

void EntityTable::needValues() {
    if (m_contents == Contents::Values)
        return;
    if (const auto error = refresh(true))
        fatalError(error->unresolved());
}

void EntityTable::markUpdated(Row row) {
    if (!m_states[row].needsWriting())
        m_changed.push_back(row);
    m_states[row].isUpdated = m_states[row].isOnDisk;
}

void EntityTable::markDeleted(Row row) {
    for (auto& column : m_columns)
        std::visit([row](auto& values) { values.forget(row); }, column);
    m_states[row].isDeleted = true;
}

int EntityTable::write(Row row) {
    auto& statements = m_connection->statements(m_entity);
    int parameter = 0;
    Statement* statement = &statements.remove;
    if (!m_states[row].isDeleted) {
        statement = m_states[row].isOnDisk ? &statements.update : &statements.insert;
        for (const auto& column : m_columns) {
            std::visit([&](const auto& values) { values.bind(row, *statement, parameter); },
                       column);
            ++parameter;
        }
    }
    statement->bindInteger(parameter, m_ids[row]);
    const int code = statement->step();
    statement->reset();
    return code;
}

bool ManagedObject::isDeleted() const {
    return m_table->isDeleted(m_row);
}

bool ManagedObject::hasChanges() const {
    return m_table->hasChanges(m_row);
}

std::optional<QString> ManagedObject::text(std::size_t attribute) const {
    return m_table->text(m_row, attribute);
}

std::optional<QByteArrayView> ManagedObject::utf8(std::size_t attribute) const {
    return m_table->utf8(m_row, attribute);
}

void ManagedObject::setText(std::size_t attribute, const std::optional<QString>& text) {
    m_table->setText(m_row, attribute, text);
}

std::optional<Date> ManagedObject::date(std::size_t attribute) const {
    return m_table->date(m_row, attribute);
}

void ManagedObject::setDate(std::size_t attribute, std::optional<Date> date) {
    m_table->setDate(m_row, attribute, date);
}
