#pragma once

namespace jxc {

class Session;

/// How large the demo shop is.
struct DemoSize {
    int goods = 0; ///< 0: as many as the demo's lists hold; more are made as further pack sizes
};

/// Fills an account set that has no goods yet with the demo shop's classes, goods, units, partners,
/// warehouses and employees, inside a transaction that is open.
void loadDemoMasterData(Session &session, const DemoSize &size);

} // namespace jxc
