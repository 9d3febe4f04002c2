#include "waveform/FormulaFaults.h"

#include <algorithm>

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsNameStart(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }

// The characters of the name, the number or the single sign that begins there; 0 at the end.
std::size_t TokenLength(const std::string& plain, std::size_t at) {
    if (at >= plain.size()) {
        return 0;
    }
    const bool name = IsNameStart(plain[at]);
    const auto isPart = [name](char c) { return IsNameStart(c) || IsDigit(c) || (c == '.' && !name); };
    std::size_t end = at;
    while (end < plain.size() && isPart(plain[end])) {
        ++end;
    }
    return std::max<std::size_t>(end - at, 1);
}

// A place in the formula: the token that begins there, or the end.
struct Spot {
    Spot(const QString& typed, const std::string& formula, std::size_t place)
        : plain(formula), at(std::min(place, formula.size())), length(TokenLength(formula, at)) {
        token = typed.sliced(static_cast<qsizetype>(at), static_cast<qsizetype>(length));
    }

    FormulaFault Fault(const QString& text) const {
        return {text, static_cast<qsizetype>(at), static_cast<qsizetype>(length)};
    }
    FormulaFault OfToken(const char* text) const { return Fault(u'"' + token + u'"' + QLatin1String(text)); }
    char First() const { return at < plain.size() ? plain[at] : '\0'; }

    const std::string& plain;
    std::size_t at;
    std::size_t length;
    QString token;  // as it was typed
};

FormulaFault Unknown(const Spot& spot, const mu::Parser& parser) {
    if (parser.GetFunDef().contains(spot.token.toStdString())) {
        return spot.OfToken(" needs its arguments in ( ).");
    }
    if (IsNameStart(spot.First())) {
        return spot.Fault(u"There is no \"" + spot.token + u"\".");
    }
    return spot.OfToken(IsDigit(spot.First()) ? " is not a number that can be used." : " can't stand here.");
}

FormulaFault OperatorMissing(const Spot& spot) {
    return spot.Fault(u"An operator such as \"*\" is missing before \"" + spot.token + u"\".");
}

FormulaFault Bracket(const Spot& spot) {
    if (spot.First() == '(') {
        return OperatorMissing(spot);
    }
    const auto end = spot.plain.begin() + static_cast<std::ptrdiff_t>(spot.at);
    const bool open = std::count(spot.plain.begin(), end, '(') > std::count(spot.plain.begin(), end, ')');
    return spot.Fault(open ? QStringLiteral("Something is missing before \")\".")
                           : QStringLiteral("There is no \"(\" for this \")\"."));
}

}  // namespace

// Of some faults the parser tells the place behind them.
FormulaFault FaultOf(const mu::ParserError& error, const mu::Parser& parser, const QString& typed,
                     const std::string& plain) {
    const auto reported = static_cast<std::size_t>(std::max(error.GetPos(), 0));
    const Spot here(typed, plain, reported);
    const Spot before(typed, plain, std::max<std::size_t>(reported, 1) - 1);
    const QString function = u'"' + QString::fromStdString(error.GetToken()) + u'"';
    switch (error.GetCode()) {
        case mu::ecUNASSIGNABLE_TOKEN:
            return Unknown(here, parser);
        case mu::ecUNEXPECTED_EOF:
            return here.Fault(QStringLiteral("The formula is not finished."));
        case mu::ecMISSING_PARENS:
            return here.Fault(QStringLiteral("A \")\" is missing."));
        case mu::ecUNEXPECTED_VAL:
        case mu::ecUNEXPECTED_VAR:
        case mu::ecUNEXPECTED_FUN:
            return OperatorMissing(here);
        case mu::ecUNEXPECTED_PARENS:
            return Bracket(here);
        case mu::ecTOO_FEW_PARAMS:
            return here.Fault(function + u" needs more arguments.");
        case mu::ecTOO_MANY_PARAMS:
            return here.Fault(function + u" takes fewer arguments.");
        case mu::ecUNEXPECTED_ARG:
            return before.Fault(QStringLiteral("Only a function takes several arguments."));
        case mu::ecMISPLACED_COLON:
            return before.Fault(QStringLiteral("There is no \"?\" for this \":\"."));
        case mu::ecMISSING_ELSE_CLAUSE:
            return Spot(typed, plain, plain.rfind('?')).Fault(QStringLiteral("There is no \":\" for this \"?\"."));
        case mu::ecEMPTY_EXPRESSION:
            return {QStringLiteral("Type a formula, or choose a ready shape.")};
        default:
            return error.GetPos() < 0 ? FormulaFault{QStringLiteral("This is not a formula.")}
                                      : here.OfToken(" can't stand here.");
    }
}

FormulaFault SeveralResults(const QString& typed, const std::string& plain) {
    int depth = 0;
    std::size_t at = 0;
    while (at < plain.size() && (depth != 0 || plain[at] != ',')) {
        depth += plain[at] == '(' ? 1 : plain[at] == ')' ? -1 : 0;
        ++at;
    }
    return Spot(typed, plain, at).Fault(QStringLiteral("Only a function takes several arguments."));
}
