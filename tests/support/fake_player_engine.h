/*
 * A player engine for tests. A program that links it has this engine instead of the platform's: it
 * decodes nothing, answers as it is told, and keeps a record of what it was asked.
 */
#pragma once

#include <QByteArray>

namespace FakePlayerEngine {

/// What the engine does. Starts as an engine that plays everything.
struct Behavior
{
    bool exists = true; ///< false: none can be created
    bool opens = true;
    bool hasInfo = true;
    bool fillsInfo = true; ///< false: says that it has information and leaves the record alone
    int duration = 2340; ///< milliseconds
};

/// What was asked since the last reset().
struct Record
{
    int created = 0; ///< calls that asked for an engine, whether there was one or not
    int opened = 0;
    int infos = 0;
    int closed = 0;
    int destroyed = 0;
    bool gotDevice = false;
    QByteArray data; ///< of the last open
    QByteArray extension; ///< of the last open
};

extern Behavior behavior;
extern Record record;

/// Takes behavior and record back to their start.
void reset();

} // namespace FakePlayerEngine
