// Two years in the life of the sample household, told month by month.
#include <array>

#include "OakfenCore/SampleData/SampleBuilder.h"

namespace oakfen {

namespace {

/// A bill that comes once a month.
struct MonthlyBill {
    int day;
    std::string_view payee;
    double amount;
    double spread;
    std::string_view category;
};

constexpr std::array chequingBills{
    MonthlyBill{4, "Bright Hydro", 96, 0.15, "Bills & Utilities: Electricity"},
    MonthlyBill{6, "Cityline Internet", 79.95, 0, "Bills & Utilities: Internet"},
    MonthlyBill{8, "Lakeside Auto Insurance", 128.4, 0, "Auto & Transport: Auto Insurance"},
    MonthlyBill{9, "Lakeview Home Insurance", 96.25, 0, "Home: Home Insurance"},
    MonthlyBill{12, "Pinnacle Mobile", 65, 0, "Bills & Utilities: Mobile Phone"},
    // What goes into a retirement plan is deducted from the taxable income.
    MonthlyBill{20, "RRSP Contribution", 320, 0, "Taxes"},
    MonthlyBill{28, "Northern Maple Bank", 4.95, 0, "Fees & Charges: Bank Fees"},
};

constexpr std::array cardBills{
    MonthlyBill{1, "StreamFlix", 16.99, 0, "Bills & Utilities: Streaming"},
    MonthlyBill{2, "Summit Fitness", 49, 0, "Health & Fitness: Gym"},
    MonthlyBill{3, "Lakeview Fuel", 58, 0.12, "Auto & Transport: Fuel"},
    MonthlyBill{5, "Maple Leaf Market", 142, 0.2, "Food & Dining: Groceries"},
    MonthlyBill{6, "Corner Coffee", 6.4, 0.3, "Food & Dining: Coffee Shops"},
    MonthlyBill{7, "The Copper Kettle", 64, 0.3, "Food & Dining: Restaurants"},
    MonthlyBill{10, "Riverside Pharmacy", 31, 0.4, "Health & Fitness: Pharmacy"},
    MonthlyBill{11, "Maple Leaf Market", 127, 0.2, "Food & Dining: Groceries"},
    MonthlyBill{13, "Corner Coffee", 7.1, 0.3, "Food & Dining: Coffee Shops"},
    MonthlyBill{14, "Lakeview Fuel", 54, 0.12, "Auto & Transport: Fuel"},
    MonthlyBill{16, "Lakeview Transit", 24, 0, "Auto & Transport: Public Transit"},
    MonthlyBill{17, "Harvest & Home", 88, 0.4, "Shopping: Household"},
    MonthlyBill{18, "Maple Leaf Market", 135, 0.2, "Food & Dining: Groceries"},
    MonthlyBill{19, "Noodle House", 47, 0.3, "Food & Dining: Restaurants"},
    MonthlyBill{21, "Threadwell Clothing", 92, 0.5, "Shopping: Clothing"},
    MonthlyBill{22, "Grand Cinema", 36, 0.25, "Entertainment: Movies & Events"},
    MonthlyBill{23, "Corner Coffee", 5.9, 0.3, "Food & Dining: Coffee Shops"},
    MonthlyBill{24, "Paws & Claws", 52, 0.2, "Pets"},
    MonthlyBill{25, "Maple Leaf Market", 149, 0.2, "Food & Dining: Groceries"},
    MonthlyBill{26, "Clip & Comb", 38, 0.1, "Personal Care"},
    MonthlyBill{27, "Lakeview Parking", 14, 0.2, "Auto & Transport: Parking"},
};

/// The loan's interest for the month on what is owed, and the rest of the payment as principal.
void payLoan(SampleBuilder& builder, const UUID& from, const UUID& loan, Date date,
             std::string_view payee, double payment, double yearlyRate,
             std::string_view interestCategory, double& owed) {
    const double interest = owed * yearlyRate / 100 / 12;
    const double principal = payment - interest;
    builder.transfer(from, loan, date, payee, cents(payment) - cents(interest));
    builder.add(from, date, payee, -cents(interest), interestCategory, "Interest");
    owed -= principal;
}

void paySalary(SampleBuilder& builder, const UUID& account, Date date) {
    builder.addSplit(account, date, "Aurora Software Inc.",
                     {builder.split("Salary", Decimal(3950)),
                      builder.split("Taxes: Income Tax", cents(-742.6), "Federal & provincial tax"),
                      builder.split("Taxes: CPP & EI", cents(-228.15))});
}

/// What happens only now and then, by the calendar's month.
void tellOccasions(SampleBuilder& builder, const SampleAccounts& accounts, Date month,
                   int monthOfYear) {
    switch (monthOfYear) {
    case 2:
        builder.add(accounts.visa, builder.on(month, 11), "Gift Nook", cents(-48.5),
                    "Gifts & Donations: Gifts");
        break;
    case 3:
        builder.add(accounts.chequing, builder.on(month, 15), "Aurora Software Inc.", Decimal(3200),
                    "Bonus", "Annual performance bonus");
        break;
    case 4:
        builder.add(accounts.chequing, builder.on(month, 28), "Tax Return", cents(-386.2),
                    "Taxes: Income Tax", "Federal & provincial tax");
        break;
    case 5:
        builder.add(accounts.visa, builder.on(month, 9), "Bright Smile Dental", Decimal(-185),
                    "Health & Fitness: Dentist");
        break;
    case 6:
        builder.add(accounts.visa, builder.on(month, 13), "Skyway Airlines", cents(-684.3),
                    "Travel", "Flights to Halifax");
        break;
    case 7:
        builder.add(accounts.visa, builder.on(month, 19), "Harbourfront Hotel", cents(-742.88),
                    "Travel");
        break;
    case 9:
        builder.add(accounts.visa, builder.on(month, 8), "ByteMart Electronics", cents(-529.99),
                    "Shopping: Electronics");
        builder.add(accounts.visa, builder.on(month, 16), "ByteMart Electronics", cents(129.99),
                    "Shopping: Electronics", "Refund");
        break;
    case 10:
        builder.add(accounts.visa, builder.on(month, 3), "Lakeview Auto Service", cents(-268.75),
                    "Auto & Transport: Service & Parts");
        break;
    case 11:
        builder.add(accounts.visa, builder.on(month, 12), "Bright Smile Dental", Decimal(-185),
                    "Health & Fitness: Dentist");
        break;
    case 12:
        builder.add(accounts.chequing, builder.on(month, 5), "Lakeview Food Bank", Decimal(-150),
                    "Gifts & Donations: Charity");
        builder.add(accounts.visa, builder.on(month, 14), "Gift Nook", cents(-236.4),
                    "Gifts & Donations: Gifts");
        break;
    default:
        break;
    }
    if (monthOfYear % 3 == 0) {
        builder.add(accounts.chequing, builder.on(month, 25), "City of Lakeview", Decimal(-742),
                    "Home: Property Tax", "Quarterly instalment");
    }
}

} // namespace

void tellSampleHistory(SampleBuilder& builder, const SampleAccounts& accounts) {
    double mortgageOwed = 298500;
    double carOwed = 19800;
    double savings = 6500;
    Decimal cardOwed = cents(1120.44);
    for (int monthsAgo = SampleBuilder::monthsOfHistory; monthsAgo >= 0; --monthsAgo) {
        const Date month = builder.month(monthsAgo);
        const int monthOfYear = builder.calendar().civil(month).month;
        const bool isHeatingSeason = monthOfYear <= 4 || monthOfYear >= 10;

        paySalary(builder, accounts.chequing, builder.on(month, 1));
        paySalary(builder, accounts.chequing, builder.on(month, 15));
        payLoan(builder, accounts.chequing, accounts.mortgage, builder.on(month, 2),
                "Mortgage Payment", 1920, 4.64, "Home: Mortgage Interest", mortgageOwed);
        payLoan(builder, accounts.chequing, accounts.carLoan, builder.on(month, 10),
                "Car Loan Payment", 425, 5.9, "Fees & Charges: Interest Paid", carOwed);
        builder.add(accounts.chequing, builder.on(month, 5), "Prairie Gas Co.",
                    -builder.around(isHeatingSeason ? 118 : 42, 0.15),
                    "Bills & Utilities: Natural Gas");
        for (const MonthlyBill& bill : chequingBills) {
            builder.add(accounts.chequing, builder.on(month, bill.day), bill.payee,
                        -builder.around(bill.amount, bill.spread), bill.category);
        }

        builder.transfer(accounts.chequing, accounts.savings, builder.on(month, 16),
                         "Transfer to Savings", Decimal(600));
        builder.transfer(accounts.chequing, accounts.tfsa, builder.on(month, 17),
                         "TFSA Contribution", Decimal(350));
        savings += 600;
        const double interest = savings * 2.75 / 100 / 12;
        builder.add(accounts.savings, builder.on(month, 28), "Northern Maple Bank", cents(interest),
                    "Interest Income");
        savings += interest;

        // The card's balance at the end of the month before is paid in full.
        builder.transfer(accounts.chequing, accounts.visa, builder.on(month, 18),
                         "Rewards Visa Payment", cardOwed);
        const std::size_t before = builder.library().transactions.size();
        for (const MonthlyBill& bill : cardBills) {
            builder.add(accounts.visa, builder.on(month, bill.day), bill.payee,
                        -builder.around(bill.amount, bill.spread), bill.category);
        }
        tellOccasions(builder, accounts, month, monthOfYear);
        cardOwed = Decimal();
        for (std::size_t index = before; index < builder.library().transactions.size(); ++index) {
            const Transaction& entry = builder.library().transactions[index];
            if (entry.accountID == accounts.visa) {
                cardOwed -= entry.amount;
            }
        }
    }
    // Two that nobody has filed yet.
    builder.add(accounts.visa, builder.day(builder.calendar().startOfDay(builder.now()), -3),
                "Pop-up Market", cents(-38.5), {});
    builder.add(accounts.chequing, builder.day(builder.calendar().startOfDay(builder.now()), -6),
                "Mobile Deposit", Decimal(75), {});
}

} // namespace oakfen
