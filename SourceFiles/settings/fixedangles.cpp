#include "settings/fixedangles.h"

#include <QStringList>

#include <cmath>

namespace {

bool isYesOrNo(const QString &word)
{
    return word == QLatin1String("yes") || word == QLatin1String("no");
}

} // namespace

FixedAngles::FixedAngles(const ControllerLink &link, const QObject *asker)
    : m_link(link), m_asker(asker)
{
}

bool FixedAngles::isAnyFixed() const
{
    const auto count = m_link.count("standard number_of_bodies");
    if (!count)
        m_link.log(QStringLiteral("Error: Unable to check number of standard bodies"));
    bool any = false;
    for (int number = 1; m_asker && number <= count.value_or(0); ++number) {
        const auto answer = m_link.text("standard fixed_angle b%.2d", number);
        if (!answer)
            m_link.log(QStringLiteral("Error: Unable to check fixed angle of standard body"));
        const QStringList fields = answer.value_or(QString()).split(QLatin1Char(' '));
        for (const int flag : {0, 2, 4})
            any = any || fields.value(flag) == QLatin1String("yes");
    }
    return any;
}

int FixedAngles::count() const
{
    const auto count = m_link.count("body number_of_bodies standard");
    if (!count)
        m_link.log(QStringLiteral("Error: Unable to check number of standard bodies"));
    return count.value_or(0);
}

FixedAngleBody FixedAngles::read(int number) const
{
    FixedAngleBody body;
    body.body_id = number;
    const auto description = m_link.text("body desc standard b%.2d", number);
    if (!description)
        m_link.log(QStringLiteral("Error: Unable to check name of standard body"));
    body.body_des = description.value_or(QString());

    const auto calibrated = m_link.text("body calibrated standard b%.2d", number);
    if (!calibrated) {
        m_link.log(
                QStringLiteral("Error: Unable to check the calibration status of standard body"));
    }
    const auto targetType = m_link.name("body target_type standard b%.2d", number);
    if (!targetType)
        m_link.log(QStringLiteral("Error: Unable to check target type"));
    body.body_cali = calibrated == QLatin1String("yes")
                     && (targetType == QLatin1String("tt_std")
                         || targetType == QLatin1String("tt_2x5dof_cyl"));
    const bool areAnglesWhole = readAngles(&body);
    body.angles_known = areAnglesWhole && calibrated && isYesOrNo(*calibrated) && targetType;
    return body;
}

/** True when the answer consists of exactly three flags, each followed by its angle. */
bool FixedAngles::readAngles(FixedAngleBody *body) const
{
    const auto answer = m_link.text("standard fixed_angle b%.2d", body->body_id);
    if (!answer) {
        m_link.log(QStringLiteral("Error: Unable to check fixed angle of standard body"));
        return false;
    }
    const QStringList fields = answer->split(QLatin1Char(' '));
    const int axes = int(body->fixed_angle.size());
    bool isWhole = fields.size() == 2 * axes;
    for (int axis = 0; axis < axes; ++axis) {
        const QString flag = fields.value(2 * axis);
        bool isNumber = false;
        const double degrees = fields.value(2 * axis + 1).toDouble(&isNumber);
        isNumber = isNumber && std::isfinite(degrees);
        body->fixed_angle_enable[axis] = flag == QLatin1String("yes");
        body->fixed_angle[axis] = isNumber ? degrees : 0.0;
        isWhole = isWhole && isYesOrNo(flag) && isNumber;
    }
    return isWhole;
}

bool FixedAngles::write(const FixedAngleBody &body) const
{
    const auto word = [&body](int axis) { return body.fixed_angle_enable[axis] ? "yes" : "no"; };
    const bool done = m_link.set("standard fixed_angle b%.2d %s %f %s %f %s %f", body.body_id,
                                 word(0), body.fixed_angle[0], word(1), body.fixed_angle[1],
                                 word(2), body.fixed_angle[2]);
    if (!done)
        m_link.log(QStringLiteral("Error: Unable to set fixed angle of standard body"));
    return done;
}
