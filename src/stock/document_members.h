#pragma once

namespace jxc {

class Session;
struct Document;

/// What a document does to the member that it names. The stock room knows only that it names one;
/// the counter's room, which keeps the members, implements this.
class DocumentMembers {
public:
    virtual ~DocumentMembers() = default;
    /// Before anything is written. Throws Refusal.
    virtual void check(const Session &session, const Document &document) const = 0;
    /// The document has just been approved.
    virtual void approved(Session &session, const Document &document) const = 0;
    /// The approval is being taken back; the counter's copies of the document still stand.
    virtual void cancelling(Session &session, const Document &document) const = 0;
};

} // namespace jxc
