// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/recognition/NeuralTextRecognizer.h"

#include <filesystem>
#include <memory>

namespace tovarin {

/// Reads the models when the first bitmap comes: a bill with a text layer needs none.
class RecognizerOnDemand final : public TextRecognizer {
public:
    explicit RecognizerOnDemand(std::filesystem::path models) : m_models(std::move(models)) {}

    /// Throws as well when the models cannot be read.
    QList<TextObservation> recognize(const QImage &bitmap) override {
        if (!m_recognizer)
            m_recognizer = std::make_unique<NeuralTextRecognizer>(m_models);
        return m_recognizer->recognize(bitmap);
    }

private:
    std::filesystem::path m_models;
    std::unique_ptr<NeuralTextRecognizer> m_recognizer;
};

} // namespace tovarin
