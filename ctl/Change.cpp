#include "ctl/Change.h"

#include <cmath>

#include "ctl/DryPort.h"
#include "link/SettingCommands.h"
#include "link/SilentFront.h"
#include "rules/LevelCoupling.h"
#include "rules/LevelRules.h"

namespace {

// Numbers that are the same but for what decimal and binary digits make of each other.
bool Same(double one, double other) {
    constexpr double kDust = 1e-9;
    return std::fabs(one - other) <= kDust * std::max(std::fabs(one), std::fabs(other));
}

QString Named(const Field& field, double value, const PanelState& panel) {
    return QLatin1StringView(field.name) + u'=' + TextOf(field, value, panel);
}

QString Because(const QString& hints) { return hints.isEmpty() ? QString() : QString(u" (" + hints + u')'); }

QString LimitRemark(const Field& field, double value, const Held& held, const PanelState& panel) {
    return Named(field, value, panel) + u" is out of its limits, which are " + QLatin1StringView(field.limits) +
           u": the panel holds it at " + TextOf(field, held.value, panel) + Because(held.hint);
}

class Planner {
  public:
    Planner(const PanelState& state, QList<Assignment> assignments) : assignments_(std::move(assignments)) {
        plan_.state = state;
        std::ranges::stable_sort(assignments_, {}, &Assignment::field);
    }

    Plan Make() {
        for (const Assignment& assignment : assignments_) {
            Put(assignment);
        }
        Couple();
        LookAtLine();
        return std::move(plan_);
    }

  private:
    bool Names(const char* name) const {
        return std::ranges::any_of(assignments_,
                                   [name](const Assignment& a) { return qstrcmp(a.field->name, name) == 0; });
    }
    bool Names(const Field& field) const { return Names(field.name); }

    void Put(const Assignment& assignment) {
        const Field& field = *assignment.field;
        double value = assignment.value;
        if (field.IsNumber()) {
            const Held held = field.hold(plan_.state, value);
            if (held.value != value) {
                plan_.remarks += LimitRemark(field, value, held, plan_.state);
            }
            value = held.value;
        }
        field.put(plan_.state, value);
    }

    // As on the panel, what was changed last gives way: the offset, if it is named, else the level.
    void Couple() {
        const PanelState before = plan_.state;
        PanelState& state = plan_.state;
        QStringList hints;
        const auto say = [&hints](const QString& hint) { hints += hint; };
        // Another unit holds the level as an entry of it does: one below the least would go out in the largest range.
        const Held level = Names("level-unit") ? HoldLevel(state.mAmp, state.tmVPP, AmOn(state), PlainNumbers())
                           : AmOn(state)       ? HoldAmLevel(state.mAmp, state.tmVPP, PlainNumbers())
                                               : Held{state.mAmp, {}};
        hints += level.hint.isEmpty() ? QStringList() : QStringList(level.hint);
        state.mAmp = level.value;
        if (Names("offset")) {
            state.bmBereich = LevelRangeNumber(state.mAmp, state.tmVPP);
        } else {
            CoupleLevel(state, PlainNumbers(), say);
        }
        CoupleOffset(state, PlainNumbers(), say);
        for (const Field& field : Fields()) {
            if (!Same(field.Of(before), field.Of(state))) {
                plan_.remarks +=
                    Named(field, field.Of(before), before) +
                    (Names(field) ? u" does not go with the rest and becomes " : u" has to give way and becomes ") +
                    TextOf(field, field.Of(state), state) + Because(hints.join(u"; "));
            }
        }
    }

    void LookAtLine() {
        PanelState sent = plan_.state;
        const QStringList lines = SettingLines(sent);
        for (const Field& field : Fields()) {
            const std::optional<double> onLine = field.IsNumber() ? NumberIn(lines, field) : field.Of(sent);
            const double wanted = field.Of(plan_.state);
            if (!onLine && Names(field)) {
                plan_.remarks += Named(field, wanted, plan_.state) + u" is not sent now: it is sent while " +
                                 QLatin1StringView(field.sentWhile);
            } else if (onLine && !Same(*onLine, wanted)) {
                plan_.remarks += Named(field, wanted, plan_.state) +
                                 (Names(field) ? u" goes out as " : u", which was there, goes out as ") +
                                 TextOf(field, *onLine, plan_.state);
            }
            plan_.sent.push_back(onLine);
        }
    }

    static std::optional<double> NumberIn(const QStringList& lines, const Field& field) {
        std::optional<double> number;
        for (const QString& line : lines) {
            for (const char* const command : field.commands) {
                if (line.startsWith(QLatin1StringView(command))) {
                    number = ReadHeadNumber(QStringView(line).sliced(static_cast<qsizetype>(qstrlen(command))));
                }
            }
        }
        return number;
    }

    Plan plan_;
    QList<Assignment> assignments_;
};

}  // namespace

QStringList OutOfLimits(const QList<Assignment>& assignments) {
    QStringList remarks;
    const PanelState anyState;
    for (const auto& [field, value] : assignments) {
        // The limits of a level depend on its unit and on the modulation.
        if (field->IsNumber() && field->quantity != Quantity::Level) {
            const Held held = field->hold(anyState, value);
            remarks += held.value == value ? QStringList() : QStringList(LimitRemark(*field, value, held, anyState));
        }
    }
    return remarks;
}

Plan PlanChange(PanelState state, QList<Assignment> assignments) {
    return Planner(state, std::move(assignments)).Make();
}

QStringList SettingLines(PanelState& panel) {
    QStringList lines;
    ProgramState program;
    program.numbers = PlainNumbers();
    program.panel = panel;
    program.link.LinkUp = 1;
    DryPort port(program, [&lines](const QString& line) { lines += line; });
    port.SetPortOpen(true);
    StillClock clock;
    SilentFront front;
    LinkGate gate(front);
    SerialTransport transport(program.link, gate, port, clock, front, front);
    SettingCommands(program, transport).SendAllToUnit();
    panel = program.panel;
    return lines;
}

QStringList Differences(const Plan& plan, const PanelState& reported) {
    QStringList differences;
    std::size_t place = 0;
    for (const Field& field : Fields()) {
        const std::optional<double> sent = plan.sent[place++];
        if (sent && !Same(*sent, field.Of(reported))) {
            differences += QStringLiteral("%1 was sent, the instrument reports %2")
                               .arg(Named(field, *sent, plan.state), TextOf(field, field.Of(reported), reported));
        }
    }
    return differences;
}
