// SPDX-License-Identifier: MIT
// bench: dictionaries of any size, and measurements of the run and its parts.
// The words that made-up interface strings consist of.
#pragma once

#include <array>
#include <string_view>

namespace lexmill::bench {

/// A word with its translation.
struct Word {
  std::u16string_view source;
  std::u16string_view target;
};

inline constexpr auto kVerbs = std::to_array<Word>({
    {u"Open", u"打开"},       {u"Save", u"保存"},        {u"Close", u"关闭"},
    {u"Print", u"打印"},      {u"Copy", u"复制"},        {u"Paste", u"粘贴"},
    {u"Delete", u"删除"},     {u"Insert", u"插入"},      {u"Rename", u"重命名"},
    {u"Find", u"查找"},       {u"Replace", u"替换"},     {u"Select", u"选择"},
    {u"Show", u"显示"},       {u"Hide", u"隐藏"},        {u"Import", u"导入"},
    {u"Export", u"导出"},     {u"Download", u"下载"},    {u"Upload", u"上传"},
    {u"Install", u"安装"},    {u"Remove", u"移除"},      {u"Update", u"更新"},
    {u"Restore", u"还原"},    {u"Reset", u"重置"},       {u"Configure", u"配置"},
    {u"Enable", u"启用"},     {u"Disable", u"禁用"},     {u"Connect", u"连接"},
    {u"Disconnect", u"断开"}, {u"Start", u"启动"},       {u"Stop", u"停止"},
    {u"Compare", u"比较"},    {u"Merge", u"合并"},       {u"Split", u"拆分"},
    {u"Sort", u"排序"},       {u"Filter", u"筛选"},      {u"Encrypt", u"加密"},
    {u"Check", u"检查"},      {u"Customize", u"自定义"}, {u"Preview", u"预览"},
    {u"Register", u"注册"},
});

inline constexpr auto kAdjectives = std::to_array<Word>({
    {u"new", u"新"},        {u"current", u"当前"},    {u"selected", u"所选"},
    {u"default", u"默认"},  {u"recent", u"最近的"},   {u"temporary", u"临时"},
    {u"remote", u"远程"},   {u"local", u"本地"},      {u"hidden", u"隐藏的"},
    {u"shared", u"共享"},   {u"personal", u"个人"},   {u"automatic", u"自动"},
    {u"advanced", u"高级"}, {u"basic", u"基本"},      {u"additional", u"附加"},
    {u"external", u"外部"}, {u"internal", u"内部"},   {u"previous", u"上一个"},
    {u"next", u"下一个"},   {u"compressed", u"压缩"}, {u"encrypted", u"加密的"},
    {u"unknown", u"未知"},  {u"invalid", u"无效"},    {u"empty", u"空"},
});

inline constexpr auto kNouns = std::to_array<Word>({
    {u"file", u"文件"},
    {u"folder", u"文件夹"},
    {u"document", u"文档"},
    {u"window", u"窗口"},
    {u"page", u"页面"},
    {u"image", u"图像"},
    {u"table", u"表格"},
    {u"column", u"列"},
    {u"row", u"行"},
    {u"font", u"字体"},
    {u"color", u"颜色"},
    {u"toolbar", u"工具栏"},
    {u"menu", u"菜单"},
    {u"shortcut", u"快捷方式"},
    {u"dictionary", u"词典"},
    {u"language", u"语言"},
    {u"account", u"帐户"},
    {u"password", u"密码"},
    {u"server", u"服务器"},
    {u"network", u"网络"},
    {u"connection", u"连接"},
    {u"database", u"数据库"},
    {u"record", u"记录"},
    {u"report", u"报表"},
    {u"printer", u"打印机"},
    {u"device", u"设备"},
    {u"drive", u"驱动器"},
    {u"message", u"消息"},
    {u"attachment", u"附件"},
    {u"address book", u"通讯簿"},
    {u"bookmark", u"书签"},
    {u"history", u"历史记录"},
    {u"setting", u"设置"},
    {u"option", u"选项"},
    {u"property", u"属性"},
    {u"version", u"版本"},
    {u"license", u"许可证"},
    {u"plug-in", u"插件"},
    {u"template", u"模板"},
    {u"layer", u"图层"},
    {u"selection", u"选区"},
    {u"project", u"工程"},
    {u"user's profile", u"用户配置文件"},
    {u"log", u"日志"},
    {u"backup", u"备份"},
    {u"archive", u"压缩包"},
    {u"task", u"任务"},
    {u"process", u"进程"},
});

inline constexpr auto kPlaces = std::to_array<Word>({
    {u"in", u"中"},
    {u"from", u"里"},
    {u"below", u"下方"},
    {u"above", u"上方"},
    {u"before", u"之前"},
    {u"after", u"之后"},
    {u"next to", u"旁"},
    {u"outside", u"之外"},
});

}  // namespace lexmill::bench
