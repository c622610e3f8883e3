#ifndef PCL_ROW_H
#define PCL_ROW_H

#include "platform/store/pcl_Persistent.h"

#include <memory>
#include <vector>

class fio_FileBody;
class fio_Statement;

/// Writes an object's attributes into the parameters of its class's statement. Parameters stand in the order of
/// declaration, after object id, save number and base object id; a bulk array takes two, its first extent and its
/// count.
class pcl_RowWriter : public pcl_WriteVisitor
{
public:
    pcl_RowWriter(const pcl_ClassMetadata& metadata, fio_Statement& statement);

    /// How many parameters the row takes.
    int parameterCount() const { return m_parameterCount; }

    bool StartWrite(unsigned typeId) override;
    void Write(const char* attribute, int value) override;
    void Write(const char* attribute, long long value) override;
    void Write(const char* attribute, float value) override;
    void Write(const char* attribute, double value) override;
    void Write(const char* attribute, bool value) override;
    void Write(const char* attribute, const char* text) override;
    void Write(const char* attribute, const std::string& text) override;
    void Write(const char* attribute, const std::vector<int>& list) override;
    void Write(const char* attribute, const std::vector<double>& list) override;
    void Write(const char* attribute, const std::vector<std::string>& list) override;
    void Write(const char* attribute, const lnk_AnyShortCut& reference) override;
    void Write(const char* attribute, const pcl_Array<int>& bulk) override;
    void Write(const char* attribute, const pcl_Array<float>& bulk) override;
    void Write(const char* attribute, const pcl_Array<double>& bulk) override;

private:
    int parameter(const char* attribute) const;
    const std::string& keep(std::string text);
    void writeRun(const char* attribute, const pcl_ArrayBase& bulk);

    const pcl_ClassMetadata& m_metadata;
    fio_Statement& m_statement;
    std::vector<int> m_parameters;
    int m_parameterCount = 0;
    std::vector<std::unique_ptr<std::string>> m_kept; // texts stay until the statement has run
};

/// Reads an object's attributes from a row. An attribute whose column the file lacks, or whose value has another
/// kind, is left as it is or refused with the file's path.
class pcl_RowReader : public pcl_ReadVisitor
{
public:
    /// @param columns  of each attribute in declared order: its first column in the row, or -1
    pcl_RowReader(const pcl_ClassMetadata& metadata, const std::vector<int>& columns, fio_Statement& row,
                  const std::shared_ptr<fio_FileBody>& file);

    bool Read(const char* attribute, int& value) override;
    bool Read(const char* attribute, long long& value) override;
    bool Read(const char* attribute, float& value) override;
    bool Read(const char* attribute, double& value) override;
    bool Read(const char* attribute, bool& value) override;
    bool Read(const char* attribute, std::string& text) override;
    bool Read(const char* attribute, std::vector<int>& list) override;
    bool Read(const char* attribute, std::vector<double>& list) override;
    bool Read(const char* attribute, std::vector<std::string>& list) override;
    bool Read(const char* attribute, lnk_AnyShortCut& reference) override;
    bool Read(const char* attribute, pcl_Array<int>& bulk) override;
    bool Read(const char* attribute, pcl_Array<float>& bulk) override;
    bool Read(const char* attribute, pcl_Array<double>& bulk) override;

private:
    int column(const char* attribute) const;
    bool readRun(const char* attribute, pcl_ArrayBase& bulk, std::size_t valueSize);
    [[noreturn]] void refuse(const char* attribute) const;
    template<class T> bool readList(const char* attribute, std::vector<T>& list);

    const pcl_ClassMetadata& m_metadata;
    const std::vector<int>& m_columns;
    fio_Statement& m_row;
    std::shared_ptr<fio_FileBody> m_file;
};

#endif
