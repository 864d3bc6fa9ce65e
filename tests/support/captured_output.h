#pragma once

#include <iostream>
#include <sstream>
#include <string>

/// What is printed on standard output while it lives.
class CapturedOutput
{
public:
    CapturedOutput() : m_previous(std::cout.rdbuf(m_text.rdbuf())) {}
    ~CapturedOutput() { std::cout.rdbuf(m_previous); }
    CapturedOutput(CapturedOutput const&) = delete;
    CapturedOutput& operator=(CapturedOutput const&) = delete;
    std::string text() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::streambuf* m_previous;
};
