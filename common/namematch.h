// Type to find: whether what somebody has typed names this person or group.
#pragma once

#include <QString>

// Whether `typed` begins `name` or one of its words; case, width and diacritics
// do not count, and an empty `typed` begins everything. A Chinese character is
// also found by its pinyin: in full, by the initial of its syllable, or mixed, so
// that "zhangsan", "zs", "zhs", "zsan", "zhangs" and "张s" all find 张三. Blanks
// and apostrophes may stand between syllables ("xi'an"), and separators in the
// name may be left out. Of both texts the first 64 characters count.
bool nameMatches(const QString &name, const QString &typed);
