#include <time.h>

#include <algorithm>

#include "Tests/OakfenCore/Importers/StatementFixtures.h"

/// Statements of the least helpful shapes. Each must end, and soon: a reader that goes over the
/// text again for every cell or block would need hours for one as large as it may be.
namespace oakfen {

using testing::errorKind;
using testing::lines;
using Kind = ImportError::Kind;

namespace {

std::string repeated(std::string_view piece, std::size_t size) {
    std::string text;
    text.reserve(size);
    while (text.size() + piece.size() <= size) {
        text += piece;
    }
    return text;
}

/// Of this thread, so that whatever else the machine does plays no part.
double processorSeconds() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + (static_cast<double>(time.tv_nsec) * 1e-9);
}

/// The least of several attempts, since what disturbs one only adds to it.
double secondsToRefuse(const std::string& text, ImportFormat format) {
    constexpr int attempts = 3;
    double least = 1e9;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const double before = processorSeconds();
        EXPECT_EQ(errorKind(text, format), Kind::noTransactions);
        least = std::min(least, processorSeconds() - before);
    }
    return least;
}

/// Eight times the text may take eight times as long, and some more; going over the text again and
/// again would take sixty-four times as long.
void expectLinear(std::string_view piece, ImportFormat format) {
    constexpr std::size_t small = 128 * 1024;
    constexpr double most = 24;
    // What takes no time at all has no ratio.
    constexpr double least = 0.0005;
    const double before = std::max(secondsToRefuse(repeated(piece, small), format), least);
    const double after = secondsToRefuse(repeated(piece, 8 * small), format);
    EXPECT_LT(after / before, most) << "of " << piece;
}

} // namespace

TEST(HostileStatement, OfOneByteOverAndOverTakesTimeInProportion) {
    for (const std::string_view piece : {"a", ",", "\"", "\n", "\r", "<", "&", "!", "^", "\xFF"}) {
        for (const ImportFormat format :
             {ImportFormat::csv, ImportFormat::qif, ImportFormat::ofx}) {
            expectLinear(piece, format);
        }
    }
}

TEST(HostileStatement, OfOpeningTagsOnlyTakesTimeInProportion) {
    for (const std::string_view piece :
         {"<STMTTRN>", "</STMTTRN>", "<STMTTRN><NAME>", "<STMTTRN"}) {
        expectLinear(piece, ImportFormat::ofx);
    }
}

TEST(HostileStatement, OfCombiningMarksTakesTimeInProportion) {
    expectLinear(",\u0301", ImportFormat::csv);
    expectLinear("\"\u0301", ImportFormat::csv);
}

TEST(HostileStatement, OfHeadersOnlyTakesTimeInProportion) {
    expectLinear("!Type:Bank\n", ImportFormat::qif);
    expectLinear("D1/1/24\n", ImportFormat::qif);
}

// As large as a statement may be.

TEST(HostileStatement, OfOneUnclosedQuoteIsOneCell) {
    std::string text = repeated("a,\n", StatementImporter::maxBytes);
    text.replace(0, 22, "2024-01-31,Shop,1.00,\"");
    EXPECT_EQ(testing::onlyLine(text, ImportFormat::csv).amount, testing::money("-1"));
}

TEST(HostileStatement, OfOneBlockKeepsItsLongPayee) {
    std::string text = "<STMTTRN><DTPOSTED>20240131<TRNAMT>1<NAME>";
    const std::size_t tags = text.size();
    text.resize(StatementImporter::maxBytes, '&');
    const auto all = lines(text, ImportFormat::ofx);
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].payee.size(), StatementImporter::maxBytes - tags);
}

TEST(HostileStatement, OfHeadersAsLargeAsItMayBeHasNoTransactions) {
    const std::string text = repeated("!Type:Bank\n", StatementImporter::maxBytes);
    EXPECT_EQ(errorKind(text, ImportFormat::qif), Kind::noTransactions);
}

} // namespace oakfen
