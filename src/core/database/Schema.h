// The five tables of the diary, as they are persisted. Dates are texts "yyyy-MM-dd", so that string order is
// date order. There is no index and no unique constraint: one row per date is kept by the callers.
#pragma once

#include <QString>

namespace sanovia {

inline const QString CREATE_DOCTOR_TABLE = QStringLiteral(
    "CREATE TABLE IF NOT EXISTS doctor ( 'pk' INTEGER PRIMARY KEY AUTOINCREMENT, 'name' TEXT, 'phone' TEXT, "
    "'email' TEXT )");
inline const QString CREATE_ME_TABLE = QStringLiteral(
    "CREATE TABLE IF NOT EXISTS me ( 'pk' INTEGER PRIMARY KEY AUTOINCREMENT, 'name' TEXT, 'birthday' DATE, "
    "'email' "
    "TEXT, 'hmo' INTEGER, 'diagnose' INTEGER )");
inline const QString CREATE_GENERAL_TABLE = QStringLiteral(
    "CREATE TABLE IF NOT EXISTS general ( 'pk' INTEGER PRIMARY KEY AUTOINCREMENT, 'user_pk' INTEGER, 'gdate' "
    "DATE, "
    "'temperature' REAL, 'wellbeing' INTEGER, 'appetite' INTEGER, 'weight' REAL )");
inline const QString CREATE_PRESSURE_TABLE = QStringLiteral(
    "CREATE TABLE IF NOT EXISTS pressure ( 'pk' INTEGER PRIMARY KEY AUTOINCREMENT, 'user_pk' INTEGER, "
    "'pdate' DATE, "
    "'systolic' INTEGER, 'diastolic' INTEGER, 'pulse' INTEGER, 'ppressure' INTEGER )");
inline const QString CREATE_BLOOD_TABLE = QStringLiteral(
    "CREATE TABLE IF NOT EXISTS blood ( 'pk' INTEGER PRIMARY KEY AUTOINCREMENT, 'user_pk' INTEGER, 'bdate' "
    "DATE, "
    "'hemoglobin' REAL, 'crp' REAL, 'esp' REAL, 'albumin' REAL, 'wbc' REAL )");

}  // namespace sanovia
