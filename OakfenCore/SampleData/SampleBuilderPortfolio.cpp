// The securities of the sample household and two years of modest trading in its tax-free account.
#include "OakfenCore/Models/InvestmentAmounts.h"
#include "OakfenCore/SampleData/SampleBuilder.h"

namespace oakfen {

namespace {

class Trades {
public:
    Trades(SampleBuilder& builder, const UUID& account) : builder_(builder), account_(account) {}

    void trade(InvestmentAction action, const UUID& security, int monthsAgo, int day,
               std::int64_t shares, const Decimal& commission = {}) {
        const Date date = builder_.on(builder_.month(monthsAgo), day);
        record({.securityID = security,
                .date = date,
                .action = action,
                .shares = Decimal(shares),
                .price = priceOn(security, date),
                .commission = commission});
    }

    void cash(InvestmentAction action, const std::optional<UUID>& security, int monthsAgo, int day,
              const Decimal& amount) {
        record({.securityID = security,
                .date = builder_.on(builder_.month(monthsAgo), day),
                .action = action,
                .amount = amount});
    }

private:
    [[nodiscard]] Decimal priceOn(const UUID& id, Date date) const {
        const Security* security = builder_.library().securities.first(
            [&](const Security& candidate) { return candidate.id == id; });
        return oakfen::priceOn(*security, date);
    }

    void record(InvestmentTransaction row) {
        if (row.date > builder_.now()) {
            return;
        }
        row.id = UUID::random();
        row.accountID = account_;
        builder_.library().investmentTransactions.push_back(std::move(row));
    }

    SampleBuilder& builder_;
    UUID account_;
};

} // namespace

void fillSamplePortfolio(SampleBuilder& builder, const UUID& account) {
    using enum InvestmentAction;
    const UUID xeqt = builder.security("XEQT", "iShares Core Equity ETF Portfolio",
                                       SecurityKind::etf, 28.4, 0.0022, 0.012);
    const UUID vfv = builder.security("VFV", "Vanguard S&P 500 Index ETF", SecurityKind::etf, 118.2,
                                      0.0026, 0.015);
    const UUID xbb = builder.security("XBB", "iShares Core Canadian Universe Bond",
                                      SecurityKind::etf, 28.1, 0.0008, 0.004);
    const UUID shop =
        builder.security("SHOP", "Shopify Inc.", SecurityKind::stock, 96.5, 0.006, 0.05);
    const UUID ry =
        builder.security("RY", "Royal Bank of Canada", SecurityKind::stock, 136.75, 0.002, 0.02);
    Security gic{.id = UUID::random(),
                 .symbol = "GIC-1Y",
                 .name = "1-Year GIC 4.25%",
                 .kind = SecurityKind::gic,
                 .price = Decimal(1),
                 .priceHistory = {{builder.month(SampleBuilder::monthsOfHistory), Decimal(1)}}};
    const UUID gicID = gic.id;
    builder.library().securities.push_back(std::move(gic));

    Trades trades(builder, account);
    const Decimal commission = cents(4.95);
    trades.trade(buy, xeqt, 24, 5, 120);
    trades.trade(buy, xbb, 24, 5, 90);
    trades.trade(buy, vfv, 23, 8, 14);
    trades.trade(buy, shop, 22, 12, 12, commission);
    trades.trade(buy, gicID, 14, 3, 1000);
    for (int monthsAgo = 21; monthsAgo >= 3; monthsAgo -= 3) {
        trades.cash(dividend, xbb, monthsAgo, 22, cents(18.9));
        trades.trade(buy, xeqt, monthsAgo, 24, 14);
        trades.trade(reinvest, vfv, monthsAgo, 26, 1);
    }
    // Bought dear: the one holding that stands below its cost.
    trades.trade(buy, ry, 16, 9, 8, commission);
    for (int monthsAgo = 15; monthsAgo >= 3; monthsAgo -= 3) {
        trades.cash(dividend, ry, monthsAgo, 24, cents(11.36));
    }
    trades.trade(sell, shop, 9, 14, 4, commission);
    trades.cash(interest, gicID, 2, 3, cents(42.5));
}

} // namespace oakfen
