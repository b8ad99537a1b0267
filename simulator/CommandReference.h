#pragma once

#include <QString>

/** All commands of the simulated controller as a Markdown page, in the table's order. */
QString commandsMarkdown();
