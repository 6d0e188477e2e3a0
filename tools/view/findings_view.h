/*
 * The problems of a message for a reader: as lines of text and as JSON.
 */
#pragma once

#include "check/findings.h"

#include <QString>
#include <QStringList>

#include <string>

struct Message;

/// Where and what a problem is, its effect and its remedy, in one sentence. May contain control
/// characters.
QString sentenceOf(const Check::Finding &finding);

/// A line for each rule with problems that are not kept, such as "and 3 more of unused-part".
QStringList notKeptLines(const Check::Findings &findings);

/// Such as "1 error, 2 notes".
QString findingsSummary(const Check::Findings &findings);

/// The problems as lines that are safe for a terminal. Every line ends in a line feed.
QString findingsText(const Message &message, const Check::Findings &findings);

/// The problems as a line of JSON.
std::string findingsJson(const Message &message, const Check::Findings &findings);

/// All about a rule, for --explain.
QString explanation(const Check::RuleText &rule);
