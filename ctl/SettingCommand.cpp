#include <QJsonObject>

#include "ctl/Change.h"
#include "ctl/Commands.h"
#include "ctl/SettingSteps.h"

namespace {

// "level=1Vpp level-unit=Vrms" would put out more than twice the voltage that is meant.
bool Contradicts(const Assignment& assignment, const QList<Assignment>& others) {
    return std::ranges::any_of(others, [&assignment](const Assignment& other) {
        return other.field == assignment.field && other.value != assignment.value;
    });
}

std::optional<QList<Assignment>> ReadAssignments(Session& session, const QStringList& texts) {
    QList<Assignment> assignments;
    for (const QString& text : texts) {
        QString fault;
        const auto read = ReadAssignment(text, fault);
        if (!read) {
            session.console.Error(fault);
            return std::nullopt;
        }
        for (const Assignment& assignment : *read) {
            if (Contradicts(assignment, assignments)) {
                session.console.Error(text + u" contradicts what stands before it: name each value once");
                return std::nullopt;
            }
            assignments += assignment;
        }
    }
    return assignments;
}

int RefuseAll(Session& session, const QStringList& remarks) {
    for (const QString& remark : remarks) {
        session.console.Error(remark + u". Nothing was set; --clamp sets it so");
    }
    return kBadUsage;
}

}  // namespace

int SendPlan(Session& session, const Plan& plan, bool clamp) {
    if (!plan.remarks.isEmpty() && !clamp) {
        return RefuseAll(session, plan.remarks);
    }
    for (const QString& remark : plan.remarks) {
        session.console.Note(remark);
    }
    session.program.panel = plan.state;
    session.link().commands.SendAllToUnit();
    if (!session.ReadBack()) {
        return session.Failure();
    }
    const QStringList differences = session.options().dryRun ? QStringList() : Differences(plan, session.program.panel);
    for (const QString& difference : differences) {
        session.console.Error(difference);
    }
    return differences.isEmpty() ? kDone : kDifferent;
}

int Set(Session& session, const QStringList& texts, bool clamp) {
    const auto assignments = ReadAssignments(session, texts);
    if (!assignments) {
        return kBadUsage;
    }
    // What can't be set whatever the instrument holds does not even open the port.
    const QStringList hopeless = clamp ? QStringList() : OutOfLimits(*assignments);
    if (!hopeless.isEmpty()) {
        return RefuseAll(session, hopeless);
    }
    if (!session.Connect() || !session.ReadAll()) {
        return session.Failure();
    }
    return SendPlan(session, PlanChange(session.program.panel, *assignments), clamp);
}

int Get(Session& session, const QStringList& names, bool json) {
    QList<const Field*> fields;
    for (const QString& name : names) {
        fields += FindField(name);
        if (fields.last() == nullptr) {
            return Refuse(session,
                          QStringLiteral("there is no field \"%1\": \"kl5276ctl fields\" lists them").arg(name));
        }
    }
    for (const Field& field : names.isEmpty() ? Fields() : std::span<const Field>()) {
        fields += &field;
    }
    if (!session.Connect() || !session.ReadAll()) {
        return session.Failure();
    }
    const PanelState& panel = session.program.panel;
    QJsonObject object;
    for (const Field* const field : fields) {
        const double value = field->Of(panel);
        const QString text = TextOf(*field, value, panel);
        object.insert(QLatin1StringView(field->name), field->IsNumber() ? QJsonValue(value) : QJsonValue(text));
        if (!json) {
            PrintResult(session, QLatin1StringView(field->name) + u'=' + text);
        }
    }
    if (json) {
        PrintJson(session, QJsonDocument(object));
    }
    return kDone;
}

int SwitchOutput(Session& session, bool on) {
    if (!session.Connect()) {
        return session.Failure();
    }
    session.program.panel.tmOut = ToTruth(on);
    session.link().commands.SendOutput();
    session.link().readBack.ReadStatus();
    if (!session.IsSound()) {
        return session.Failure();
    }
    if (session.program.panel.tmOut != ToTruth(on)) {
        session.console.Error(
            QStringLiteral("output=%1 was sent, and the instrument reports the opposite").arg(on ? u"on" : u"off"));
        return kDifferent;
    }
    return kDone;
}

int ListFields(Session& session) {
    for (const Field& field : Fields()) {
        QStringList words;
        for (const char* const word : field.words) {
            words += QString::fromLatin1(word);
        }
        const QString values = field.IsNumber() ? QString::fromLatin1(field.limits) : words.join(u'|');
        session.console.Print(QLatin1StringView(field.name) + u'\t' + values + u'\t' + QLatin1StringView(field.about));
    }
    return kDone;
}
