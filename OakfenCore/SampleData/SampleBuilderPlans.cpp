// What the sample household intends: its budget, the bills to come and what it saves for.
#include <array>
#include <utility>

#include "OakfenCore/SampleData/SampleBuilder.h"

namespace oakfen {

namespace {

constexpr std::array<std::pair<std::string_view, int>, 15> monthlyBudget{{
    {"Food & Dining: Groceries", 620},
    {"Food & Dining: Restaurants", 150},
    {"Food & Dining: Coffee Shops", 30},
    {"Auto & Transport: Fuel", 130},
    {"Auto & Transport: Auto Insurance", 130},
    {"Bills & Utilities: Electricity", 110},
    {"Bills & Utilities: Internet", 80},
    {"Bills & Utilities: Mobile Phone", 65},
    {"Bills & Utilities: Natural Gas", 140},
    // The price went up and the plan did not: over budget from the first of each month.
    {"Bills & Utilities: Streaming", 15},
    {"Shopping: Clothing", 120},
    {"Shopping: Household", 110},
    {"Entertainment: Movies & Events", 50},
    {"Health & Fitness: Gym", 50},
    {"Pets", 65},
}};

struct Reminder {
    std::string_view payee;
    double amount;
    std::string_view category;
    int day;
    bool autoEnter = false;
    Frequency frequency = Frequency::monthly;
};

constexpr std::array chequingReminders{
    Reminder{"Aurora Software Inc.", 2979.25, "Salary", 1},
    Reminder{"Aurora Software Inc.", 2979.25, "Salary", 15},
    Reminder{"Bright Hydro", -96, "Bills & Utilities: Electricity", 4},
    Reminder{"Prairie Gas Co.", -90, "Bills & Utilities: Natural Gas", 5},
    Reminder{"Cityline Internet", -79.95, "Bills & Utilities: Internet", 6, true},
    Reminder{"Lakeside Auto Insurance", -128.4, "Auto & Transport: Auto Insurance", 8, true},
    Reminder{"Lakeview Home Insurance", -96.25, "Home: Home Insurance", 9, true},
    Reminder{"Pinnacle Mobile", -65, "Bills & Utilities: Mobile Phone", 12},
    Reminder{"City of Lakeview", -742, "Home: Property Tax", 25, false, Frequency::quarterly},
};

} // namespace

void makeSamplePlans(SampleBuilder& builder, const SampleAccounts& accounts) {
    Library& library = builder.library();
    for (const auto& [path, amount] : monthlyBudget) {
        if (const auto category = builder.cat(path)) {
            library.budget[*category] = Decimal(amount);
        }
    }

    const auto remind = [&](const UUID& account, const Reminder& reminder,
                            const std::optional<UUID>& transferTo = {}) {
        Date nextDate = builder.next(reminder.day);
        // Quarterly bills came in March, June, September and December.
        while (reminder.frequency == Frequency::quarterly &&
               builder.calendar().civil(nextDate).month % 3 != 0) {
            nextDate = builder.calendar().addingMonths(nextDate, 1);
        }
        library.scheduled.push_back({.id = UUID::random(),
                                     .payee = std::string(reminder.payee),
                                     .accountID = account,
                                     .amount = cents(reminder.amount),
                                     .categoryID = builder.cat(reminder.category),
                                     .transferAccountID = transferTo,
                                     .frequency = reminder.frequency,
                                     .nextDate = nextDate,
                                     .autoEnter = reminder.autoEnter});
    };
    for (const Reminder& reminder : chequingReminders) {
        remind(accounts.chequing, reminder);
    }
    remind(accounts.visa, {"StreamFlix", -16.99, "Bills & Utilities: Streaming", 1, true});
    remind(accounts.visa, {"Summit Fitness", -49, "Health & Fitness: Gym", 2});
    remind(accounts.chequing, {"Mortgage Payment", -820, {}, 2}, accounts.mortgage);
    remind(accounts.chequing, {"Car Loan Payment", -350, {}, 10}, accounts.carLoan);
    remind(accounts.chequing, {"Transfer to Savings", -600, {}, 16, true}, accounts.savings);
    remind(accounts.chequing, {"TFSA Contribution", -350, {}, 17}, accounts.tfsa);
    remind(accounts.chequing, {"Rewards Visa Payment", -1300, {}, 18}, accounts.visa);

    const auto inMonths = [&](int months) {
        return builder.calendar().addingMonths(builder.month(0), months);
    };
    library.goals.push_back({.id = UUID::random(),
                             .name = "Emergency Fund",
                             .symbolName = "lifepreserver",
                             .target = Decimal(20000),
                             .saved = Decimal(12400)});
    library.goals.push_back({.id = UUID::random(),
                             .name = "Trip to Halifax",
                             .symbolName = "airplane",
                             .target = Decimal(3500),
                             .saved = Decimal(1900),
                             .targetDate = inMonths(8)});
    library.goals.push_back({.id = UUID::random(),
                             .name = "Next Car",
                             .symbolName = "car",
                             .target = Decimal(15000),
                             .saved = Decimal(4200),
                             .targetDate = inMonths(30)});
}

} // namespace oakfen
