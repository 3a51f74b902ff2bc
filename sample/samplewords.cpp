#include "sample/samplewords.h"

namespace {
constexpr const char *Signatures[] = {
    "今天也要加油",
    "有事请留言，看到就回复。",
    "出差中，邮件联系",
    "Working from home",
    "On leave until Monday",
    "千里之行，始于足下",
    "保持好奇心",
    "会议中，请稍后联系",
    "Ship it, then measure it",
    "多喝热水",
    "不积跬步，无以至千里；不积小流，无以成江海。",
    "\"Done\" means deployed & documented",
    "Bitte nur per E-Mail",
    "快乐工作，认真生活",
};
constexpr const char *Cities[] = {"南京", "北京", "上海",   "深圳",   "杭州",     "成都",
                                  "武汉", "西安", "London", "Berlin", "Singapore"};
constexpr const char *Remarks[] = {"老同学", "隔壁桌",   "项目接口人",      "师傅",
                                   "班长",   "网络找他", "Finance contact", "周报找她"};

template <std::size_t N> QString pick(const char *const (&table)[N], quint64 number)
{
    return QString::fromUtf8(table[number % N]);
}
} // namespace

const QVector<SampleDivision> &sampleDivisions()
{
    static const QVector<SampleDivision> divisions = {
        {"研发中心",
         8,
         {"平台研发部", "客户端研发部", "测试部", "运维部", "数据部", "安全部"},
         {"软件工程师", "高级软件工程师", "测试工程师", "架构师", "运维工程师", "算法工程师"}},
        {"产品部",
         2,
         {"产品规划部", "用户体验部", "设计部", "产品运营部", "用户研究部", "内容部"},
         {"产品经理", "交互设计师", "视觉设计师", "产品助理", "用户研究员", "高级产品经理"}},
        {"市场部",
         2,
         {"品牌部", "市场活动部", "渠道部", "公关部", "新媒体部", "市场分析部"},
         {"市场专员", "品牌经理", "文案策划", "渠道经理", "媒介专员", "市场分析师"}},
        {"销售部",
         4,
         {"华东销售部", "华北销售部", "华南销售部", "西部销售部", "大客户部", "售前支持部"},
         {"销售代表", "客户经理", "高级客户经理", "售前工程师", "销售助理", "区域经理"}},
        {"International",
         2,
         {"Sales EMEA", "Sales Americas", "Partner Management", "Localisation", "Field Services",
          "Asia Pacific"},
         {"Account Manager", "Solution Engineer", "Translator", "Partner Manager", "Consultant",
          "Office Manager"}},
        {"人力资源部",
         1,
         {"招聘部", "培训部", "薪酬福利部", "员工关系部", "组织发展部", "人事服务部"},
         {"招聘专员", "培训师", "薪酬专员", "人事专员", "员工关系经理", "人事助理"}},
        {"财务部",
         1,
         {"会计部", "资金部", "审计部", "预算部", "税务部", "成本部"},
         {"会计", "出纳", "审计师", "税务专员", "财务分析师", "成本会计"}},
        {"客户服务部",
         3,
         {"热线服务部", "在线服务部", "技术支持部", "质检部", "培训与知识部", "投诉处理部"},
         {"客服专员", "技术支持工程师", "质检员", "客服主管", "知识库编辑", "投诉专员"}},
    };
    return divisions;
}

QString sampleSignature(quint64 number)
{
    return pick(Signatures, number);
}

QString sampleCity(quint64 number)
{
    return pick(Cities, number);
}

QString sampleRemark(quint64 number)
{
    return pick(Remarks, number);
}
