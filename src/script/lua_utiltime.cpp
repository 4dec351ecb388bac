// Date, Time and DateTime: Qt's calendar values, compared with Lua's own
// operators and printed in ISO form.
#include "qluabindings.h"
#include "qluaqt.h"
#include "qluatableinit.h"

#include <QDateTime>

#include <algorithm>
#include <initializer_list>

namespace {

// The integer fields of a table form, in the order of `names`, a missing one
// taking its default. A date's fields are set together (Feb 29 is valid only
// with its year), so these classes read their table at once rather than
// through one setter per key.
QVector<int> fields(const luabind::object& table, const char* className,
                    std::initializer_list<std::pair<const char*, int>> names)
{
    const QString name = QString::fromLatin1(className);
    if (luabind::type(table) != LUA_TTABLE)
        throw lua::fault(QStringLiteral("%1: a table of property names and values is needed").arg(name));
    QVector<int> values;
    for (const auto& [key, fallback] : names) {
        const luabind::object value = luabind::rawget(table, key);
        if (luabind::type(value) != LUA_TNIL && luabind::type(value) != LUA_TNUMBER)
            throw lua::fault(QStringLiteral("%1.%2: a number is needed").arg(name, QString::fromLatin1(key)));
        values << (luabind::type(value) == LUA_TNUMBER ? luabind::object_cast<int>(value) : fallback);
    }
    for (luabind::iterator item(table), end; item != end; ++item) {
        const luabind::object key = item.key();
        const bool known = luabind::type(key) == LUA_TSTRING &&
                           std::any_of(names.begin(), names.end(), [&](const auto& known) {
                               return luabind::object_cast<std::string>(key) == known.first;
                           });
        if (!known)
            throw lua::fault(QStringLiteral("%1 has no property '%2'").arg(name, luabind::type(key) == LUA_TSTRING ? luabind::object_cast<QString>(key) : QStringLiteral("?")));
    }
    return values;
}

template<class T>
QString isoText(const T& value) { return value.toString(Qt::ISODate); }
template<class T>
QString formatted(const T& value, const QString& format) { return value.toString(format); }

void dateFromTable(const luabind::argument& self, const luabind::object& table)
{
    const QVector<int> f = fields(table, "Date", {{"year", 1}, {"month", 1}, {"day", 1}});
    lua::initAs(self, QDate(f[0], f[1], f[2]));
}
QDate currentDate() { return QDate::currentDate(); }
QDate dateFromString(const QString& text, const QString& format) { return QDate::fromString(text, format); }
QDate dateFromIso(const QString& text) { return QDate::fromString(text, Qt::ISODate); }
QDate addDays(const QDate& d, int days) { return d.addDays(days); }
int daysTo(const QDate& d, const QDate& other) { return int(d.daysTo(other)); }
double julianDay(const QDate& d) { return double(d.toJulianDay()); }
QDate fromJulianDay(double day) { return QDate::fromJulianDay(qint64(day)); }
int dayOfWeek(const QDate& d) { return d.dayOfWeek(); }
int dayOfYear(const QDate& d) { return d.dayOfYear(); }
int daysInMonth(const QDate& d) { return d.daysInMonth(); }
int daysInYear(const QDate& d) { return d.daysInYear(); }
QDate addMonths(const QDate& d, int months) { return d.addMonths(months); }
QDate addYears(const QDate& d, int years) { return d.addYears(years); }
bool setDate(QDate& d, int year, int month, int day) { return d.setDate(year, month, day); }
int year(const QDate& d) { return d.year(); }
int month(const QDate& d) { return d.month(); }
int day(const QDate& d) { return d.day(); }

void timeFromTable(const luabind::argument& self, const luabind::object& table)
{
    const QVector<int> f = fields(table, "Time", {{"hour", 0}, {"minute", 0}, {"second", 0}, {"msec", 0}});
    lua::initAs(self, QTime(f[0], f[1], f[2], f[3]));
}
QTime currentTime() { return QTime::currentTime(); }
QTime timeFromString(const QString& text, const QString& format) { return QTime::fromString(text, format); }
QTime timeFromIso(const QString& text) { return QTime::fromString(text, Qt::ISODate); }
bool setHMS(QTime& t, int h, int m, int s, int ms) { return t.setHMS(h, m, s, ms); }

void dateTimeFromTable(const luabind::argument& self, const luabind::object& table)
{
    lua::initAs(self, QDateTime(QDate(1970, 1, 1), QTime(0, 0)));
    lua::applyTable(self, table);
}
void dateTimeFromDate(const luabind::argument& self, const QDate& date)
{
    lua::initAs(self, QDateTime(date, QTime(0, 0)));
}
QDateTime currentDateTime() { return QDateTime::currentDateTime(); }
QDateTime dateTimeFromString(const QString& text, const QString& format) { return QDateTime::fromString(text, format); }
QDateTime dateTimeFromIso(const QString& text) { return QDateTime::fromString(text, Qt::ISODate); }
QDateTime fromSecsSinceEpoch(double seconds) { return QDateTime::fromSecsSinceEpoch(qint64(seconds)); }
double toSecsSinceEpoch(const QDateTime& d) { return double(d.toSecsSinceEpoch()); }
double toMSecsSinceEpoch(const QDateTime& d) { return double(d.toMSecsSinceEpoch()); }
void setSecsSinceEpoch(QDateTime& d, double seconds) { d.setSecsSinceEpoch(qint64(seconds)); }
QDateTime addDateTimeDays(const QDateTime& d, int days) { return d.addDays(days); }
QDateTime addSecs(const QDateTime& d, double seconds) { return d.addSecs(qint64(seconds)); }
QDateTime addMSecs(const QDateTime& d, double ms) { return d.addMSecs(qint64(ms)); }
int dateTimeDaysTo(const QDateTime& d, const QDateTime& other) { return int(d.daysTo(other)); }
double secsTo(const QDateTime& d, const QDateTime& other) { return double(d.secsTo(other)); }
double msecsTo(const QDateTime& d, const QDateTime& other) { return double(d.msecsTo(other)); }

void registerDate(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<QDate>("Date")
            .def(constructor<>())
            .def(constructor<int, int, int>())
            .def(constructor<const QDate&>())
            .def("__init", &dateFromTable)
            .property("year", &year)
            .property("month", &month)
            .property("day", &day)
            .property("dayOfWeek", &dayOfWeek)
            .property("dayOfYear", &dayOfYear)
            .property("daysInMonth", &daysInMonth)
            .property("daysInYear", &daysInYear)
            .def("isValid", lua::bare<static_cast<bool (QDate::*)() const>(&QDate::isValid)>)
            .def("isNull", lua::bare<&QDate::isNull>)
            .def("setDate", &setDate)
            .def("addDays", &addDays)
            .def("addMonths", &addMonths)
            .def("addYears", &addYears)
            .def("daysTo", &daysTo)
            .def("toJulianDay", &julianDay)
            .def("toString", &formatted<QDate>)
            .def("toString", &isoText<QDate>)
            .def("__eq", &lua::equal<QDate>)
            .def("__lt", &lua::less<QDate>)
            .def("__le", &lua::lessOrEqual<QDate>)
            .def("__tostring", &isoText<QDate>)
            .scope[
                def("currentDate", &currentDate), def("fromString", &dateFromString),
                def("fromString", &dateFromIso), def("fromJulianDay", &fromJulianDay),
                def("isLeapYear", &QDate::isLeapYear)
            ]
    ];
}

void registerTime(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<QTime>("Time")
            .def(constructor<>())
            .def(constructor<int, int>())
            .def(constructor<int, int, int>())
            .def(constructor<int, int, int, int>())
            .def(constructor<const QTime&>())
            .def("__init", &timeFromTable)
            .property("hour", lua::bare<&QTime::hour>)
            .property("minute", lua::bare<&QTime::minute>)
            .property("second", lua::bare<&QTime::second>)
            .property("msec", lua::bare<&QTime::msec>)
            .property("msecsSinceStartOfDay", lua::bare<&QTime::msecsSinceStartOfDay>)
            .def("isValid", lua::bare<static_cast<bool (QTime::*)() const>(&QTime::isValid)>)
            .def("isNull", lua::bare<&QTime::isNull>)
            .def("setHMS", &setHMS)
            .def("addSecs", lua::bare<&QTime::addSecs>)
            .def("addMSecs", lua::bare<&QTime::addMSecs>)
            .def("secsTo", lua::bare<&QTime::secsTo>)
            .def("msecsTo", lua::bare<&QTime::msecsTo>)
            .def("toString", &formatted<QTime>)
            .def("toString", &isoText<QTime>)
            .def("__eq", &lua::equal<QTime>)
            .def("__lt", &lua::less<QTime>)
            .def("__le", &lua::lessOrEqual<QTime>)
            .def("__tostring", &isoText<QTime>)
            .scope[
                def("currentTime", &currentTime), def("fromString", &timeFromString),
                def("fromString", &timeFromIso), def("fromMSecsSinceStartOfDay", &QTime::fromMSecsSinceStartOfDay)
            ]
    ];
}

void registerDateTime(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<QDateTime>("DateTime")
            .def(constructor<>())
            .def("__init", &dateTimeFromDate)
            .def(constructor<const QDate&, const QTime&>())
            .def(constructor<const QDateTime&>())
            .def("__init", &dateTimeFromTable)
            .property("date", lua::bare<&QDateTime::date>, lua::bare<&QDateTime::setDate>)
            .property("time", lua::bare<&QDateTime::time>, lua::bare<&QDateTime::setTime>)
            .def("isValid", lua::bare<&QDateTime::isValid>)
            .def("isNull", lua::bare<&QDateTime::isNull>)
            .def("addDays", &addDateTimeDays)
            .def("addMonths", lua::bare<&QDateTime::addMonths>)
            .def("addYears", lua::bare<&QDateTime::addYears>)
            .def("addSecs", &addSecs)
            .def("addMSecs", &addMSecs)
            .def("daysTo", &dateTimeDaysTo)
            .def("secsTo", &secsTo)
            .def("msecsTo", &msecsTo)
            .def("toSecsSinceEpoch", &toSecsSinceEpoch)
            .def("toMSecsSinceEpoch", &toMSecsSinceEpoch)
            .def("setSecsSinceEpoch", &setSecsSinceEpoch)
            .def("toString", &formatted<QDateTime>)
            .def("toString", &isoText<QDateTime>)
            .def("__eq", &lua::equal<QDateTime>)
            .def("__lt", &lua::less<QDateTime>)
            .def("__le", &lua::lessOrEqual<QDateTime>)
            .def("__tostring", &isoText<QDateTime>)
            .scope[
                def("currentDateTime", &currentDateTime), def("fromString", &dateTimeFromString),
                def("fromString", &dateTimeFromIso), def("fromSecsSinceEpoch", &fromSecsSinceEpoch)
            ]
    ];
}

} // namespace

void registerLuaTime(lua_State* state)
{
    registerDate(state);
    registerTime(state);
    registerDateTime(state);
}
