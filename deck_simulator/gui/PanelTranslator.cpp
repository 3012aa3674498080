#include "deck_simulator/gui/PanelTranslator.h"

namespace deck {

namespace {

struct TextRow
{
    const char *english;
    const char *chinese;
};

const TextRow textRows[] = {
    // The panel
    {"Dial %1", "旋钮 %1"},
    {"Column %1, row %2", "第 %1 列，第 %2 行"},
    {"From the plugin's data server", "来自插件的数据服务"},
    {"Nothing is on this key. Drag an action on it, or double-click one in the list.",
     "此按键上没有动作。请拖入一个动作，或双击列表中的动作。"},
    {"Now: %1", "当前：%1"},
    // Title and look
    {"&Title", "标题(&T)"},
    {"&Show it", "显示标题(&S)"},
    {"before the reading", "在读数之前"},
    {"On two lines, \"Up/Down\" gives each line its part", "双行显示时，“上传/下载”分别用于两行"},
    {"In place of the kind's default title a gauge shows the name of what it reads.",
     "标题为默认标题时，仪表显示所读对象的名称。"},
    {"In place of the kind's default title a gauge shows \"%1\".",
     "标题为默认标题时，仪表显示“%1”。"},
    {"&Font", "字体(&F)"},
    {"The plugin has no \"%1\" here and takes another font. Those that are there are in the list.",
     "插件在此没有“%1”，将使用其他字体。可用的字体见列表。"},
    {"Si&ze", "字号(&Z)"},
    {"Chosen by the plugin while the text fills the key", "文字填满按键时由插件选择"},
    {"&Width", "宽度(&W)"},
    {"fill the key", "填满按键"},
    {"Tell the plugin the width of the key, so that it chooses the font size by it",
     "把按键的宽度告诉插件，由它据此选择字号"},
    {"&Colour", "颜色(&C)"},
    {"Pick a colour", "选择颜色"},
    {"A colour's name or #RRGGBB", "颜色名称或 #RRGGBB"},
    {"T&ransparency", "透明度(&R)"},
    {"\"opacity\": 0 is opaque, 1 is invisible", "“opacity”：0 为不透明，1 为不可见"},
    {" px", " 像素"},
    {" s", " 秒"},
    // What a kind has
    {"Te&mperature", "温度单位(&M)"},
    {"Celsius", "摄氏度"},
    {"Fahrenheit", "华氏度"},
    {"&Lines", "行数(&L)"},
    {"One line", "单行"},
    {"Two lines", "双行"},
    {"S&hows", "显示内容(&H)"},
    {"One drive", "一个硬盘"},
    {"Each drive in turn", "轮流显示各硬盘"},
    {"All drives together", "所有硬盘合计"},
    {"&Drive", "硬盘(&D)"},
    {"S&witches every", "切换间隔(&W)"},
    {"Drive &name", "硬盘名称(&N)"},
    {"before the figures", "在数字之前"},
    {"F&an", "风扇(&A)"},
    {"&Disk", "硬盘(&D)"},
    {"Audio d&evice", "音频设备(&E)"},
    {"Pump", "水泵"},
    {"no reading", "无读数"},
    {"none found", "未找到"},
    {"Search sensors", "搜索传感器"},
    {"Sensors", "传感器"},
    {"Sensor", "传感器"},
    {"Now", "当前"},
    // Gauges
    {"Text", "文字"},
    {"Bar", "条形"},
    {"Ring", "环形"},
    {"Graph", "曲线"},
    {"Pair", "双速率"},
    {"Sha&pe", "形状(&P)"},
    {"Square", "方形"},
    {"Wide, for a dial", "宽形，用于旋钮"},
    {"P&icture", "图像(&I)"},
    {"The height of the picture; the deck scales it to the key",
     "图像的高度；控制台将其缩放到按键大小"},
    {"Back to plain text", "恢复为纯文字"},
    {"Take everything away that makes the key more than a line of text",
     "去掉使按键不只是一行文字的所有设置"},
    {"%1, changed", "%1（已更改）"},
    {"Scale and thresholds", "量程与阈值"},
    {"From", "从"},
    {"To", "到"},
    {"Warning at", "警告阈值"},
    {"Critical at", "严重阈值"},
    {"Worse is", "变差方向"},
    {"Above", "高于"},
    {"Below", "低于"},
    {"Above (as usual)", "高于（默认）"},
    {"Below (as usual)", "低于（默认）"},
    {"automatic", "自动"},
    {"none", "无"},
    {"the total", "总量"},
    {"10 % of the total", "总量的 10 %"},
    {"5 % of the total", "总量的 5 %"},
    {"the card's memory", "显卡的显存"},
    {"Colours", "颜色"},
    {"Normal", "正常"},
    {"Warning", "警告"},
    {"Critical", "严重"},
    {"Ground", "背景"},
    {"Value and key press", "数值与按键"},
    {"Graph covers", "曲线时长"},
    {"Mean of", "平均"},
    {" readings", " 次读数"},
    {"1 reading", "1 次读数"},
    {"The mean of so many readings is shown", "显示这么多次读数的平均值"},
    {"Decimals", "小数位数"},
    {"As the text has them", "与文字相同"},
    {"Rates in", "速率单位"},
    {"Bytes (KB/s, MB/s)", "字节 (KB/s, MB/s)"},
    {"Bits (kbit/s, Mbit/s)", "比特 (kbit/s, Mbit/s)"},
    {"Key press", "按下按键"},
    {"Changes nothing", "不改变显示"},
    {"Shows the extremes", "显示极值"},
    {"Minimum, maximum and mean in turn; holding the key for a second starts them anew",
     "依次显示最小值、最大值和平均值；按住一秒重新开始统计"},
    // Short titles of gauges, as the plugin has them
    {"CPU temp", "CPU温度"},
    {"CPU clock", "CPU频率"},
    {"CPU power", "CPU功率"},
    {"CPU volts", "CPU电压"},
    {"GPU temp", "GPU温度"},
    {"GPU clock", "GPU频率"},
    {"Mem clock", "显存频率"},
    {"GPU mem", "显存"},
    {"VRAM", "已用显存"},
    {"GPU power", "GPU功耗"},
    {"GPU volts", "GPU电压"},
    {"Memory", "内存"},
    {"Free", "可用内存"},
    {"Used", "已用内存"},
    {"Network", "网速"},
    {"Up", "上传"},
    {"Down", "下载"},
    {"Disk temp", "硬盘温度"},
    {"Volume", "音量"},
    {"Fan", "风扇"},
    // Pictures
    {"Picture %1, key %2", "图像 %1，按键 %2"},
    {"Picture %1, screen %2", "图像 %1，屏幕 %2"},
    {"%1: scaled to %2 %", "%1：缩放至 %2 %"},
    // Readings
    {"Network Upload Speed", "上传网速"},
    {"Network Download Speed", "下载网速"},
    {"%1 GB that the system may use, rounded", "系统可用 %1 GB（取整）"},
    {"there is no \"%1\"", "没有“%1”"},
    {"its volume cannot be read", "无法读取其音量"},
    {"%1: %2 GB free, %3 %", "%1：可用 %2 GB，%3 %"},
    {"All: %1 free of %2", "全部：可用 %1，共 %2"},
    {"Default device: %1", "默认设备：%1"},
    {"not available on this machine", "在此机器上不可用"},
    {"not available on this machine (%1)", "在此机器上不可用（%1）"},
    {"no sensor of the processor can be read; virtual machines have none",
     "无法读取处理器的传感器；虚拟机没有传感器"},
    {"no energy counter of the processor can be read; on Linux most are for root only",
     "无法读取处理器的能耗计数器；在 Linux 上大多仅限 root 读取"},
    {"no sensor of the processor can be read", "无法读取处理器的传感器"},
    {"the graphics have no such sensor, or are asleep", "显卡没有此传感器，或处于休眠状态"},
    {"no graphics card was found", "未找到显卡"},
    {"no drive can be read", "无法读取任何硬盘"},
    {"there is no playback device, or the sound server cannot be reached",
     "没有播放设备，或无法连接声音服务"},
    {"no fan's speed can be read", "无法读取任何风扇的转速"},
    {"no pump's speed can be read", "无法读取任何水泵的转速"},
};

} // namespace

PanelTranslator::PanelTranslator(QObject *parent)
    : QTranslator(parent)
{
}

void PanelTranslator::setLanguage(const QString &language)
{
    m_texts.clear();
    if (language != QLatin1String("zh_CN"))
        return;
    for (const TextRow &row : textRows)
        m_texts.insert(QString::fromUtf8(row.english), QString::fromUtf8(row.chinese));
}

QString PanelTranslator::translate(const char *context, const char *sourceText,
                                   const char *disambiguation, int n) const
{
    Q_UNUSED(context)
    Q_UNUSED(disambiguation)
    Q_UNUSED(n)
    return m_texts.value(QString::fromUtf8(sourceText));
}

QStringList PanelTranslator::texts()
{
    QStringList texts;
    for (const TextRow &row : textRows)
        texts.append(QString::fromUtf8(row.english));
    return texts;
}

} // namespace deck
