#include "personnames.h"

#include "labrandom.h"

#include <QLocale>
#include <QStringList>

namespace coagulation {

namespace {

QList<QString> characters(const QString& text)
{
    QList<QString> list;
    for (const QChar c : text)
        list.append(QString(c));
    return list;
}

const QList<QString>& surnames()
{
    static const QList<QString> list = characters(
        QStringLiteral("王李张刘陈杨黄赵吴周徐孙马朱胡郭何高林罗郑梁谢宋唐许韩冯邓曹彭曾肖田董袁潘于"
                       "蒋蔡余杜叶程苏魏吕丁任沈姚卢姜崔钟谭陆汪范金石廖贾夏韦付方白邹孟熊秦邱江尹薛"
                       "闫段雷侯龙史陶黎贺顾毛郝龚邵万钱严覃武戴莫孔向汤"));
    return list;
}

const QList<QString>& maleCharacters()
{
    static const QList<QString> list = characters(QStringLiteral(
        "伟强磊军勇杰涛明超刚平辉鹏华飞鑫波斌宇浩凯健俊帆帅旭宁龙林欢阳建国志伟海峰文博晨亮成"));
    return list;
}

const QList<QString>& femaleCharacters()
{
    static const QList<QString> list = characters(
        QStringLiteral("芳娜敏静丽艳娟霞秀兰燕玲桂英红梅琳婷雪慧颖倩晶佳琴云洁莉萍丹丽君玉华淑珍凤月"));
    return list;
}

const QList<QString>& englishSurnames()
{
    static const QList<QString> list =
        QStringLiteral("Smith Jones Taylor Brown Wilson Evans Thomas Roberts Walker Wright Hall Green Wood "
                       "Harris Lewis Clarke King Baker Turner Hill Scott Cooper Ward Morris Moore Clark Lee "
                       "Parker Cook Bell Price Allen Young Reed Hughes Kelly Bennett Gray Hayes Russell "
                       "Foster Mason Porter Rose Grant Barker Ellis Fisher Lane Carter")
            .split(QLatin1Char(' '));
    return list;
}

const QList<QString>& englishGivenNames(bool male)
{
    static const QList<QString> men =
        QStringLiteral("James John Robert David William Thomas Daniel Paul Mark George Peter Andrew Simon "
                       "Henry Adam Oliver Jack Harry Samuel Lucas Ryan Owen Luke Max Ethan Noah Leo Tom")
            .split(QLatin1Char(' '));
    static const QList<QString> women =
        QStringLiteral("Mary Emma Sarah Anna Laura Alice Grace Emily Lucy Claire Helen Ruth Jane Kate Amy "
                       "Rose Ella Mia Chloe Hannah Julia Sophie Ivy Eva Zoe Lily Holly Nora")
            .split(QLatin1Char(' '));
    return male ? men : women;
}

} // namespace

QString PersonNames::name(LabRandom& random, bool male)
{
    // Names follow the session's language, like the rest of the generated laboratory.
    if (QLocale().language() == QLocale::English) {
        const QString given = random.pick(englishGivenNames(male));
        const QString surname = random.pick(englishSurnames());
        // As many draws as a Chinese name, so that the rest of the laboratory comes out the same.
        if (random.chance(0.7))
            random.pick(englishGivenNames(male));
        return given + QLatin1Char(' ') + surname;
    }
    const QList<QString>& given = male ? maleCharacters() : femaleCharacters();
    QString result = random.pick(surnames()) + random.pick(given);
    if (random.chance(0.7))
        result += random.pick(given);
    return result;
}

QStringList PersonNames::names(LabRandom& random, int count)
{
    QStringList list;
    // The name space is far larger than any staff, so this ends quickly; the bound guards it.
    for (int attempt = 0; list.size() < count && attempt < count * 100; ++attempt) {
        const QString candidate = name(random, random.chance(0.5));
        if (!list.contains(candidate))
            list.append(candidate);
    }
    return list;
}

} // namespace coagulation
