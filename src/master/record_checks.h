#pragma once

#include "master/master_kind.h"

namespace jxc {

class Record;
class Session;

/// Makes what was typed fit to be stored: trims, sanitises, rounds figures to the configured
/// decimals, and takes the initials of the name for a mnemonic code that nobody typed. What was not
/// changed stays as it stands in the database.
void prepareRecord(const Session &session, const MasterKind &kind, Record &record);

/// Checks the fields in their order, then the kind's own rules. Throws FieldRefusal for the first
/// that fails.
void checkRecord(const Session &session, const MasterKind &kind, Record &record);

/// The refusal of a field in words: caption and rest.
[[noreturn]] void refuseField(const MasterField &field, const QString &text);

} // namespace jxc
