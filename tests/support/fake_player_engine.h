/*
 * A player engine for tests. A program that links it has this engine instead of the platform's. It
 * decodes nothing, returns the configured results, and records its calls.
 */
#pragma once

#include <QByteArray>

namespace FakePlayerEngine {

/// The configured behavior. Initially, the engine plays everything.
struct Behavior
{
    bool exists = true; ///< false: none can be created
    bool opens = true;
    bool hasInfo = true;
    bool fillsInfo =
        true; ///< false: reports that it has information, but does not change the record
    int duration = 2340; ///< milliseconds
};

/// The calls since the last reset().
struct Record
{
    int created = 0; ///< calls that requested an engine, successful or not
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

/// Resets behavior and record to their initial values.
void reset();

} // namespace FakePlayerEngine
