#include "sample/samplenames.h"

#include <cstddef>

namespace {
struct Syllable
{
    const char *text;
    const char *spell;
    int weight; // of surnames: bearers in ten thousand
};

constexpr Syllable Surnames[] = {
    {"王", "wang", 725},    {"李", "li", 719},   {"张", "zhang", 683},     {"刘", "liu", 538},
    {"陈", "chen", 453},    {"杨", "yang", 308}, {"黄", "huang", 223},     {"赵", "zhao", 229},
    {"吴", "wu", 205},      {"周", "zhou", 212}, {"徐", "xu", 167},        {"孙", "sun", 154},
    {"马", "ma", 129},      {"朱", "zhu", 126},  {"胡", "hu", 131},        {"郭", "guo", 115},
    {"何", "he", 117},      {"林", "lin", 118},  {"高", "gao", 100},       {"罗", "luo", 95},
    {"郑", "zheng", 93},    {"梁", "liang", 84}, {"谢", "xie", 72},        {"宋", "song", 81},
    {"唐", "tang", 69},     {"许", "xu", 64},    {"邓", "deng", 62},       {"冯", "feng", 64},
    {"韩", "han", 68},      {"曹", "cao", 57},   {"曾", "zeng", 58},       {"彭", "peng", 55},
    {"萧", "xiao", 59},     {"蔡", "cai", 53},   {"潘", "pan", 58},        {"田", "tian", 55},
    {"董", "dong", 51},     {"袁", "yuan", 50},  {"于", "yu", 48},         {"余", "yu", 41},
    {"叶", "ye", 42},       {"蒋", "jiang", 47}, {"杜", "du", 47},         {"苏", "su", 46},
    {"魏", "wei", 47},      {"程", "cheng", 45}, {"吕", "lv", 45},         {"丁", "ding", 43},
    {"沈", "shen", 41},     {"任", "ren", 41},   {"姚", "yao", 40},        {"卢", "lu", 40},
    {"傅", "fu", 38},       {"钟", "zhong", 40}, {"姜", "jiang", 39},      {"崔", "cui", 38},
    {"谭", "tan", 38},      {"廖", "liao", 37},  {"范", "fan", 36},        {"汪", "wang", 36},
    {"陆", "lu", 36},       {"金", "jin", 35},   {"石", "shi", 34},        {"戴", "dai", 34},
    {"贾", "jia", 33},      {"韦", "wei", 32},   {"夏", "xia", 32},        {"邱", "qiu", 31},
    {"方", "fang", 31},     {"侯", "hou", 30},   {"邹", "zou", 30},        {"熊", "xiong", 29},
    {"孟", "meng", 28},     {"秦", "qin", 28},   {"白", "bai", 27},        {"江", "jiang", 27},
    {"单", "shan", 8},      {"仇", "qiu", 4},    {"解", "xie", 5},         {"查", "zha", 4},
    {"欧阳", "ouyang", 10}, {"司马", "sima", 2}, {"上官", "shangguan", 2}, {"诸葛", "zhuge", 2},
};

constexpr Syllable MaleGiven[] = {
    {"伟", "wei", 1},  {"强", "qiang", 1}, {"磊", "lei", 1},  {"军", "jun", 1},   {"勇", "yong", 1},
    {"杰", "jie", 1},  {"涛", "tao", 1},   {"超", "chao", 1}, {"明", "ming", 1},  {"刚", "gang", 1},
    {"平", "ping", 1}, {"辉", "hui", 1},   {"鹏", "peng", 1}, {"飞", "fei", 1},   {"波", "bo", 1},
    {"斌", "bin", 1},  {"宇", "yu", 1},    {"浩", "hao", 1},  {"凯", "kai", 1},   {"健", "jian", 1},
    {"俊", "jun", 1},  {"帆", "fan", 1},   {"博", "bo", 1},   {"文", "wen", 1},   {"志", "zhi", 1},
    {"建", "jian", 1}, {"国", "guo", 1},   {"海", "hai", 1},  {"子", "zi", 1},    {"轩", "xuan", 1},
    {"航", "hang", 1}, {"晨", "chen", 1},  {"一", "yi", 1},   {"嘉", "jia", 1},   {"昊", "hao", 1},
    {"然", "ran", 1},  {"天", "tian", 1},  {"乐", "le", 1},   {"成", "cheng", 1}, {"林", "lin", 1},
};

constexpr Syllable FemaleGiven[] = {
    {"芳", "fang", 1}, {"娜", "na", 1},   {"敏", "min", 1},  {"静", "jing", 1}, {"丽", "li", 1},
    {"艳", "yan", 1},  {"娟", "juan", 1}, {"霞", "xia", 1},  {"燕", "yan", 1},  {"玲", "ling", 1},
    {"桂", "gui", 1},  {"丹", "dan", 1},  {"萍", "ping", 1}, {"红", "hong", 1}, {"玉", "yu", 1},
    {"婷", "ting", 1}, {"雪", "xue", 1},  {"琳", "lin", 1},  {"梅", "mei", 1},  {"欣", "xin", 1},
    {"怡", "yi", 1},   {"佳", "jia", 1},  {"雨", "yu", 1},   {"思", "si", 1},   {"梦", "meng", 1},
    {"洁", "jie", 1},  {"莹", "ying", 1}, {"晓", "xiao", 1}, {"璐", "lu", 1},   {"颖", "ying", 1},
    {"文", "wen", 1},  {"子", "zi", 1},   {"涵", "han", 1},  {"若", "ruo", 1},  {"琪", "qi", 1},
    {"诗", "shi", 1},  {"雅", "ya", 1},   {"晨", "chen", 1}, {"宁", "ning", 1}, {"心", "xin", 1},
};

constexpr const char *LatinMale[] = {"James",  "Oliver", "Daniel",  "Tomás", "Łukasz", "Søren",
                                     "Pierre", "Jürgen", "Matteo",  "André", "Kenji",  "Rahul",
                                     "Ivan",   "Noah",   "Émile",   "Björn", "Carlos", "Minh",
                                     "Samuel", "Zoltán", "Jean-Luc"};
constexpr const char *LatinFemale[] = {
    "Emma",   "Sofía",  "Zoë",  "Anna",   "Chloé",     "Ingrid", "María",
    "Hannah", "Priya",  "Yuki", "Élodie", "Katarzyna", "Laura",  "Nguyệt",
    "Aoife",  "Olivia", "Jana", "Renée",  "Grace",     "Şebnem", "Mary-Jane"};
constexpr const char *LatinFamily[] = {
    "Smith",        "Müller",     "O'Brien", "García",   "Nowak",    "Dupont",  "Rossi",
    "Novák",        "Jensen",     "Silva",   "Tanaka",   "Sharma",   "Nguyễn",  "D'Angelo",
    "Kowalski",     "Åkesson",    "Johnson", "Núñez",    "Petrović", "Lefèvre", "Yılmaz",
    "van der Berg", "McAllister", "Castro",  "Williams", "Weiß",     "Ibáñez",  "O’Connor",
    "Popescu",      "Sørensen",   "Brown",   "Lindqvist"};

// Written from right to left, or long enough that a list must cut them.
constexpr Syllable Others[] = {
    {"محمد عبد الله", "mohammed", 1},
    {"فاطمة الزهراء", "fatima", 1},
    {"יוסי כהן", "yossi", 1},
    {"נועה לוי", "noa", 1},
    {"Maximiliane-Alexandra Freifrau von Hohenstein-Wittelsbach zu Schwarzenberg", "maximiliane",
     1},
    {"Juan Pablo Fernández de Calderón García-Iglesias y Martínez de la Rosa", "juanpablo", 1},
    {"买买提·艾力·阿不都热西提·吐尔逊", "maimaiti", 1},
    {"古丽米热·阿卜杜拉", "gulimire", 1},
};

const Syllable &weighted(quint64 number)
{
    static const int total = [] {
        int sum = 0;
        for (const Syllable &surname : Surnames)
            sum += surname.weight;
        return sum;
    }();
    int left = int(number % quint64(total));
    for (const Syllable &surname : Surnames) {
        left -= surname.weight;
        if (left < 0)
            return surname;
    }
    return Surnames[0];
}

template <class T, std::size_t N> const T &pick(const T (&table)[N], quint64 number)
{
    return table[number % N];
}

SampleName chineseName(quint64 surnameNumber, quint64 given, bool male)
{
    const Syllable &surname = weighted(surnameNumber);
    QString name = QString::fromUtf8(surname.text);
    QString spell = QString::fromLatin1(surname.spell);
    const auto add = [&](quint64 number) {
        const Syllable &syllable = male ? pick(MaleGiven, number) : pick(FemaleGiven, number);
        name += QString::fromUtf8(syllable.text);
        spell += QString::fromLatin1(syllable.spell);
    };
    add(given >> 8);
    if (given % 10 < 7) // most given names have two characters
        add(given >> 24);
    return {name, spell, true};
}

QString plainLetters(const QString &name)
{
    QString plain;
    for (const QChar c : name.normalized(QString::NormalizationForm_KD).toLower()) {
        if ((c >= QLatin1Char('a') && c <= QLatin1Char('z')) || c.isDigit())
            plain += c;
        else if (c == QChar(0x142)) // l with stroke and o with stroke have no decomposition
            plain += QLatin1Char('l');
        else if (c == QChar(0xf8))
            plain += QLatin1Char('o');
        else if (c == QChar(0xdf))
            plain += QLatin1String("ss");
        else if (c == QChar(0x131))
            plain += QLatin1Char('i');
    }
    return plain;
}
} // namespace

SampleName sampleName(quint64 kind, quint64 surname, quint64 given, bool male)
{
    const quint64 share = kind % 1000;
    if (share < 700)
        return chineseName(surname, given, male);
    if (share < 985) {
        const QString name =
            QString::fromUtf8(male ? pick(LatinMale, given) : pick(LatinFemale, given)) +
            QLatin1Char(' ') + QString::fromUtf8(pick(LatinFamily, surname));
        return {name, plainLetters(name), false};
    }
    const Syllable &other = pick(Others, given);
    return {QString::fromUtf8(other.text), QString::fromLatin1(other.spell), false};
}
