#pragma once

#include <server/faults/Fault.h>
#include <server/faults/NetworkFault.h>

#include <QString>

#include <optional>

namespace korvel::Demo {

/// What a fault on the command line means: one of the two kinds of faults, or an error.
struct ParsedFault
{
    std::optional<Fault> fault;
    std::optional<NetworkFault> networkFault;
    QString error;
};

/// Reads "pattern=kind[:argument][*times]", for example "/api/venue=status:503*2" or
/// "@second.example=refuse".
///
/// A pattern is a text in path and query; one that starts with @ is a host name and goes with the network
/// kinds.
ParsedFault ParseFault(const QString& text);

/// The kinds with their arguments, line by line, for a help text.
QString FaultSyntaxHelp();

} // namespace korvel::Demo
