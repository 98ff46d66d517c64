#pragma once

#include "toolkit/TableViewController.h"

/** What lists of quotes say where there are none; `what` says what would stand there. */
EmptyState noQuotes(TableViewController& list, const QString& what);

/** What lists of the names that pickers offer say where there are none. */
EmptyState noNames(TableViewController& list, const QString& addForm);
