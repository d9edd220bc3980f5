<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CommandLine</name>
    <message>
        <source>%1 (see %2 --help)</source>
        <translation>%1（见 %2 --help）</translation>
    </message>
    <message>
        <source>%1 is missing</source>
        <translation>缺少 %1</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 或 %2</translation>
    </message>
    <message>
        <source>%1: its value is missing</source>
        <translation>%1：缺少值</translation>
    </message>
    <message>
        <source>, </source>
        <translation>、</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>显示版本并退出</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>位置参数</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>显示帮助并退出</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>必需</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>子命令</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>子命令</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>用法</translation>
    </message>
    <message>
        <source>a command is missing: %1</source>
        <translation>缺少命令：%1</translation>
    </message>
    <message>
        <source>unknown argument %1</source>
        <translation>未知参数 %1</translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot;: %2</source>
        <translation>未知命令“%1”：%2</translation>
    </message>
    <message>
        <source>Exit codes: 0 done, 1 failed work, 2 wrong usage.
%1 COMMAND --help tells more about a command.</source>
        <translation>退出码：0 完成，1 工作失败，2 用法错误。
%1 COMMAND --help 说明各个命令。</translation>
    </message>
    <message>
        <source>an option has a value that it does not take</source>
        <translation>某个选项带有它不接受的值</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>内存不足</translation>
    </message>
</context>
<context>
    <name>Console</name>
    <message>
        <source>cannot be written</source>
        <translation>无法写入</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>标准输出</translation>
    </message>
</context>
<context>
    <name>Language</name>
    <message>
        <source>&quot;%1&quot; is not among the choices</source>
        <translation>“%1”不在可选值之中</translation>
    </message>
    <message>
        <source>Language of help and messages, en or zh; else the environment&apos;s</source>
        <translation>帮助和消息的语言，en 或 zh；缺省由环境决定</translation>
    </message>
</context>
<context>
    <name>ManualPage</name>
    <message>
        <source>COMMAND</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>COMMANDS</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>NAME</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>SYNOPSIS</source>
        <translation>用法</translation>
    </message>
</context>
</TS>
