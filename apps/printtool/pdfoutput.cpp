#include "pdfoutput.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cstdio>

namespace coagulation {

PdfOutput::PdfOutput(const QString& target) : m_target(QFileInfo(target).absoluteFilePath()) {}

PdfOutput::~PdfOutput()
{
    if (!m_temporary.isEmpty())
        QFile::remove(m_temporary);
}

bool PdfOutput::open()
{
    const QFileInfo target(m_target);
    const QString folder = QDir::toNativeSeparators(target.absolutePath());
    if (target.exists() && !target.isFile()) {
        if (target.isDir()) {
            m_errorString = tr("%1 是一个文件夹").arg(QDir::toNativeSeparators(m_target));
            return false;
        }
        return true; // a device such as a printer port: nothing to put in place
    }
    if (!QDir().mkpath(target.absolutePath())) {
        m_errorString = tr("无法建立文件夹 %1").arg(folder);
        return false;
    }
    // Hidden beside the target, so that the rename stays within one file system.
    for (int attempt = 0; attempt < 100; ++attempt) {
        const QString name = QStringLiteral(".%1.%2.part")
                                 .arg(target.fileName())
                                 .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'));
        QFile file(target.absoluteDir().filePath(name));
        if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            m_temporary = file.fileName();
            return true;
        }
        if (file.exists())
            continue;
        break;
    }
    m_errorString = tr("无法在文件夹 %1 中写入文件").arg(folder);
    return false;
}

bool PdfOutput::commit()
{
    if (m_temporary.isEmpty())
        return true;
    if (QFileInfo(m_temporary).size() == 0 || std::rename(QFile::encodeName(m_temporary).constData(),
                                                          QFile::encodeName(m_target).constData()) != 0) {
        m_errorString = tr("无法写出文件 %1").arg(QDir::toNativeSeparators(m_target));
        return false;
    }
    m_temporary.clear();
    return true;
}

} // namespace coagulation
