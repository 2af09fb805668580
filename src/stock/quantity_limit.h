#pragma once

namespace jxc {

class Session;
struct Document;

/// Refuses a sale that carries more of a restricted goods than one sale may (g_xzsl; 0 is no
/// limit). The sum of the document's lines counts, in the units they were entered in, deliberately.
void checkQuantityLimit(Session &session, const Document &document);

} // namespace jxc
