#pragma once

#include "host/root/od_string.h"

#include <random>
#include <vector>

/// Command input that edits a drawing, made up from a seed: no commands of documents, saving or undo.
class RandomCommands
{
public:
    explicit RandomCommands(unsigned seed) : m_random(seed) {}

    /// Name and answers of the next command.
    std::vector<OdString> next();

private:
    int below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }
    OdString point();
    OdString filled(std::wstring_view word);
    void addSelection(std::vector<OdString>& answers);

    std::mt19937 m_random;
};
