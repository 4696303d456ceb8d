-- Sample rows for the tables of schema.sql, for SQL Server and SQLite alike. All values are plain ASCII:
-- a letter beyond it would need the N prefix on SQL Server, which SQLite does not know.

INSERT INTO database_version (database_version, version) VALUES (2.001, 2.008);

INSERT INTO data_extractor_config (config_name) VALUES ('Standard'), ('Fixed Length');
INSERT INTO Misc_upload_constants (DefaultConfigName) VALUES ('Standard');

-- Standard: a laboratory result message of HL7 version 2. A field's position is its number in its segment;
-- MSH counts the separator that follows its own label as field 1.
INSERT INTO LabLineConfig (id, Configuration, Name, NameIndex, MsgIndex, number1, string1, text1, date1) VALUES
    (1, 'Standard', 'MSH', 0, 1, NULL, NULL, 'Message header: separators, sender, receiver and kind of message', '2024-03-01T00:00:00'),
    (2, 'Standard', 'PID', 0, 2, NULL, NULL, 'Patient identification',                                           '2024-03-01T00:00:00'),
    (3, 'Standard', 'NTE', 1, 3, NULL, NULL, 'Comments on the patient',                                          NULL),
    (4, 'Standard', 'PV1', 0, 4, NULL, NULL, 'Patient visit',                                                    '2024-03-01T00:00:00'),
    (5, 'Standard', 'ORC', 0, 5, NULL, NULL, 'Common order',                                                     '2024-03-01T00:00:00'),
    (6, 'Standard', 'OBR', 0, 6, NULL, NULL, 'Observation request: one for each test ordered',                   '2024-03-01T00:00:00'),
    (7, 'Standard', 'NTE', 2, 7, NULL, NULL, 'Comments on the order',                                            NULL),
    (8, 'Standard', 'OBX', 0, 8, NULL, NULL, 'Observation: one for each result of a test',                       '2024-03-01T00:00:00'),
    (9, 'Standard', 'NTE', 3, 9, NULL, NULL, 'Comments on the result',                                           NULL);

-- Fixed Length: records whose fields stand at fixed character positions, one behind the other.
INSERT INTO LabLineConfig (id, Configuration, Name, NameIndex, MsgIndex, number1, string1, text1, date1) VALUES
    (10, 'Fixed Length', 'HDR', 0, 1, NULL, NULL, 'First record of a file',      '2024-03-01T00:00:00'),
    (11, 'Fixed Length', 'PAT', 0, 2, NULL, NULL, 'Patient',                     '2024-03-01T00:00:00'),
    (12, 'Fixed Length', 'ORD', 0, 3, NULL, NULL, 'Order',                       '2024-03-01T00:00:00'),
    (13, 'Fixed Length', 'RES', 1, 4, NULL, NULL, 'Result with a numeric value', '2024-03-01T00:00:00'),
    (14, 'Fixed Length', 'RES', 2, 5, NULL, NULL, 'Result with a text',          '2024-03-01T00:00:00'),
    (15, 'Fixed Length', 'TRL', 0, 6, NULL, NULL, 'Last record of a file',       NULL);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    ( 1, 'Standard', 'MSH', 0, 1,  1, 'Field Separator',                 0, 0, 'String', '',                        '|',             '',               0, '0', '',  0),
    ( 2, 'Standard', 'MSH', 0, 1,  2, 'Encoding Characters',             0, 0, 'String', '',                        '^~\&',          '',               0, '0', '',  0),
    ( 3, 'Standard', 'MSH', 0, 1,  3, 'Sending Application',             0, 0, 'String', '',                        'LAB',           '',               0, '0', '',  0),
    ( 4, 'Standard', 'MSH', 0, 1,  4, 'Sending Facility',                0, 0, 'String', 'sending_facility',        '',              '',               0, '0', '',  0),
    ( 5, 'Standard', 'MSH', 0, 1,  5, 'Receiving Application',           0, 0, 'String', 'receiving_application',   '',              '',               0, '0', '',  0),
    ( 6, 'Standard', 'MSH', 0, 1,  6, 'Receiving Facility',              0, 0, 'String', 'receiving_facility',      '',              '',               0, '0', '',  0),
    ( 7, 'Standard', 'MSH', 0, 1,  7, 'Date/Time of Message',            0, 0, 'String', 'message_datetime',        '',              'yyyyMMddHHmmss', 0, '0', '',  0),
    ( 8, 'Standard', 'MSH', 0, 1,  9, 'Message Type',                    0, 0, 'String', '',                        'ORU^R01',       '',               0, '0', '',  0),
    ( 9, 'Standard', 'MSH', 0, 1, 10, 'Message Control ID',              0, 0, 'String', 'message_control_id',      '',              '',               0, '0', '',  0),
    (10, 'Standard', 'MSH', 0, 1, 11, 'Processing ID',                   0, 0, 'String', '',                        'P',             '',               0, '0', '',  0),
    (11, 'Standard', 'MSH', 0, 1, 12, 'Version ID',                      0, 0, 'String', '',                        '2.3',           '',               0, '0', '',  0),
    (12, 'Standard', 'MSH', 0, 1, 13, 'Sequence Number',                 0, 0, 'String', 'message_sequence_number', '',              '',               0, '0', '',  0),
    (13, 'Standard', 'MSH', 0, 1, 15, 'Accept Acknowledgment Type',      0, 0, 'String', '',                        'NE',            '',               0, '0', '',  0),
    (14, 'Standard', 'MSH', 0, 1, 16, 'Application Acknowledgment Type', 0, 0, 'String', '',                        'AL',            '',               0, '0', '',  0),
    (15, 'Standard', 'MSH', 0, 1, 18, 'Character Set',                   0, 0, 'String', '',                        'UNICODE UTF-8', '',               0, '0', '',  0);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    (16, 'Standard', 'PID', 0, 2,  1, 'Set ID - PID',            0, 0, 'String', '',                       '1', '',         0, '0', '',  0),
    (17, 'Standard', 'PID', 0, 2,  2, 'Patient ID',              0, 0, 'String', 'patient_external_id',    '',  '',         0, '0', '',  0),
    (18, 'Standard', 'PID', 0, 2,  3, 'Patient Identifier List', 0, 0, 'String', 'patient_id',             '',  '',         0, '0', '',  0),
    (19, 'Standard', 'PID', 0, 2,  4, 'Alternate Patient ID',    0, 0, 'String', 'patient_alternate_id',   '',  '',         0, '0', '',  0),
    (20, 'Standard', 'PID', 0, 2,  5, 'Patient Name',            0, 0, 'String', 'patient_name',           '',  '',         0, '0', '',  0),
    (21, 'Standard', 'PID', 0, 2,  6, 'Mother''s Maiden Name',   0, 0, 'String', 'mothers_maiden_name',    '',  '',         0, '0', '',  0),
    (22, 'Standard', 'PID', 0, 2,  7, 'Date/Time of Birth',      0, 0, 'String', 'patient_birth_date',     '',  'yyyyMMdd', 0, '0', '',  0),
    (23, 'Standard', 'PID', 0, 2,  8, 'Sex',                     0, 0, 'String', 'patient_sex',            '',  '',         0, '0', '',  0),
    (24, 'Standard', 'PID', 0, 2, 10, 'Race',                    0, 0, 'String', 'patient_race',           '',  '',         0, '0', '',  0),
    (25, 'Standard', 'PID', 0, 2, 11, 'Patient Address',         0, 0, 'String', 'patient_address',        '',  '',         0, '0', '',  0),
    (26, 'Standard', 'PID', 0, 2, 13, 'Phone Number - Home',     0, 0, 'String', 'patient_home_phone',     '',  '',         0, '0', '',  0),
    (27, 'Standard', 'PID', 0, 2, 14, 'Phone Number - Business', 0, 0, 'String', 'patient_business_phone', '',  '',         0, '0', '',  0),
    (28, 'Standard', 'PID', 0, 2, 18, 'Patient Account Number',  0, 0, 'String', 'patient_account_number', '',  '',         0, '0', '',  0);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    (29, 'Standard', 'NTE', 1, 3, 1, 'Set ID - NTE',      1, 0, 'String', 'patient_comment_set_id', '',   '', 0, '0', '',  0),
    (30, 'Standard', 'NTE', 1, 3, 2, 'Source of Comment', 1, 0, 'String', '',                       'L',  '', 0, '0', '',  0),
    (31, 'Standard', 'NTE', 1, 3, 3, 'Comment',           1, 0, 'String', 'patient_comment',        '',   '', 0, '0', '',  0),
    (32, 'Standard', 'NTE', 1, 3, 4, 'Comment Type',      1, 0, 'String', '',                       'RE', '', 0, '0', '',  0);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    (33, 'Standard', 'PV1', 0, 4,  1, 'Set ID - PV1',              0, 0, 'String', '',                  '1', '',               0, '0', '',  0),
    (34, 'Standard', 'PV1', 0, 4,  2, 'Patient Class',             0, 0, 'String', 'patient_class',     '',  '',               0, '0', '',  0),
    (35, 'Standard', 'PV1', 0, 4,  3, 'Assigned Patient Location', 0, 0, 'String', 'patient_location',  '',  '',               0, '0', '',  0),
    (36, 'Standard', 'PV1', 0, 4,  7, 'Attending Doctor',          0, 0, 'String', 'attending_doctor',  '',  '',               0, '0', '',  0),
    (37, 'Standard', 'PV1', 0, 4,  8, 'Referring Doctor',          0, 0, 'String', 'referring_doctor',  '',  '',               0, '0', '',  0),
    (38, 'Standard', 'PV1', 0, 4,  9, 'Consulting Doctor',         0, 0, 'String', 'consulting_doctor', '',  '',               0, '0', '',  0),
    (39, 'Standard', 'PV1', 0, 4, 10, 'Hospital Service',          0, 0, 'String', 'hospital_service',  '',  '',               0, '0', '',  0),
    (40, 'Standard', 'PV1', 0, 4, 18, 'Patient Type',              0, 0, 'String', 'patient_type',      '',  '',               0, '0', '',  0),
    (41, 'Standard', 'PV1', 0, 4, 19, 'Visit Number',              0, 0, 'String', 'visit_number',      '',  '',               0, '0', '',  0),
    (42, 'Standard', 'PV1', 0, 4, 44, 'Admit Date/Time',           0, 0, 'String', 'admit_datetime',    '',  'yyyyMMddHHmmss', 0, '0', '',  0);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    (43, 'Standard', 'ORC', 0, 5,  1, 'Order Control',            0, 0, 'String', '',                      'RE', '',               0, '0', '',  0),
    (44, 'Standard', 'ORC', 0, 5,  2, 'Placer Order Number',      1, 0, 'String', 'placer_order_number',   '',   '',               0, '0', '',  0),
    (45, 'Standard', 'ORC', 0, 5,  3, 'Filler Order Number',      1, 0, 'String', 'filler_order_number',   '',   '',               0, '0', '',  0),
    (46, 'Standard', 'ORC', 0, 5,  4, 'Placer Group Number',      0, 0, 'String', 'placer_group_number',   '',   '',               0, '0', '',  0),
    (47, 'Standard', 'ORC', 0, 5,  5, 'Order Status',             0, 0, 'String', 'order_status',          '',   '',               0, '0', '',  0),
    (48, 'Standard', 'ORC', 0, 5,  7, 'Quantity/Timing',          1, 0, 'String', 'order_priority',        '',   '',               0, '0', '',  0),
    (49, 'Standard', 'ORC', 0, 5,  9, 'Date/Time of Transaction', 0, 0, 'String', 'order_datetime',        '',   'yyyyMMddHHmmss', 0, '0', '',  0),
    (50, 'Standard', 'ORC', 0, 5, 10, 'Entered By',               0, 0, 'String', 'order_entered_by',      '',   '',               0, '0', '',  0),
    (51, 'Standard', 'ORC', 0, 5, 12, 'Ordering Provider',        1, 0, 'String', 'ordering_provider',     '',   '',               0, '0', '',  0),
    (52, 'Standard', 'ORC', 0, 5, 17, 'Entering Organization',    0, 0, 'String', 'entering_organization', '',   '',               0, '0', '',  0);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    (53, 'Standard', 'OBR', 0, 6,  1, 'Set ID - OBR',                  0, 0, 'String', 'order_set_id',               '',    '',               0, '0', '',  0),
    (54, 'Standard', 'OBR', 0, 6,  2, 'Placer Order Number',           2, 0, 'String', 'placer_order_number',        '',    '',               0, '0', '',  0),
    (55, 'Standard', 'OBR', 0, 6,  3, 'Filler Order Number',           2, 0, 'String', 'filler_order_number',        '',    '',               0, '0', '',  0),
    (56, 'Standard', 'OBR', 0, 6,  4, 'Universal Service ID',          0, 0, 'String', 'test_code',                  '',    '',               0, '0', '',  0),
    (57, 'Standard', 'OBR', 0, 6,  7, 'Observation Date/Time',         0, 0, 'String', 'collection_datetime',        '',    'yyyyMMddHHmmss', 0, '0', '',  0),
    (58, 'Standard', 'OBR', 0, 6,  8, 'Observation End Date/Time',     0, 0, 'String', 'collection_end_datetime',    '',    'yyyyMMddHHmmss', 0, '0', '',  0),
    (59, 'Standard', 'OBR', 0, 6,  9, 'Collection Volume',             0, 0, 'String', 'collection_volume',          '',    '0.0',            0, '0', '',  0),
    (60, 'Standard', 'OBR', 0, 6, 13, 'Relevant Clinical Information', 0, 0, 'String', 'clinical_information',       '',    '',               0, '0', '',  0),
    (61, 'Standard', 'OBR', 0, 6, 14, 'Specimen Received Date/Time',   0, 0, 'String', 'specimen_received_datetime', '',    'yyyyMMddHHmmss', 0, '0', '',  0),
    (62, 'Standard', 'OBR', 0, 6, 15, 'Specimen Source',               0, 0, 'String', 'specimen_source',            '',    '',               0, '0', '',  0),
    (63, 'Standard', 'OBR', 0, 6, 16, 'Ordering Provider',             2, 0, 'String', 'ordering_provider',          '',    '',               0, '0', '',  0),
    (64, 'Standard', 'OBR', 0, 6, 22, 'Results Report Date/Time',      0, 0, 'String', 'report_datetime',            '',    'yyyyMMddHHmmss', 0, '0', '',  0),
    (65, 'Standard', 'OBR', 0, 6, 24, 'Diagnostic Service Section ID', 0, 0, 'String', '',                           'LAB', '',               0, '0', '',  0),
    (66, 'Standard', 'OBR', 0, 6, 25, 'Result Status',                 0, 0, 'String', 'order_result_status',        '',    '',               0, '0', '',  0),
    (67, 'Standard', 'OBR', 0, 6, 27, 'Quantity/Timing',               2, 0, 'String', 'order_priority',             '',    '',               0, '0', '',  0);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    (68, 'Standard', 'NTE', 2, 7, 1, 'Set ID - NTE',      2, 0, 'String', 'order_comment_set_id', '',   '', 0, '0', '',  0),
    (69, 'Standard', 'NTE', 2, 7, 2, 'Source of Comment', 2, 0, 'String', '',                     'L',  '', 0, '0', '',  0),
    (70, 'Standard', 'NTE', 2, 7, 3, 'Comment',           2, 0, 'String', 'order_comment',        '',   '', 0, '0', '',  0),
    (71, 'Standard', 'NTE', 2, 7, 4, 'Comment Type',      2, 0, 'String', '',                     'RE', '', 0, '0', '',  0);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    (72, 'Standard', 'OBX', 0, 8,  1, 'Set ID - OBX',                 0, 0, 'String', 'result_set_id',         '',  '',               0, '0', '',  0),
    (73, 'Standard', 'OBX', 0, 8,  2, 'Value Type',                   0, 0, 'String', 'result_value_type',     '',  '',               0, '0', '',  0),
    (74, 'Standard', 'OBX', 0, 8,  3, 'Observation Identifier',       0, 0, 'String', 'result_code',           '',  '',               0, '0', '',  0),
    (75, 'Standard', 'OBX', 0, 8,  4, 'Observation Sub-ID',           0, 0, 'String', 'result_sub_id',         '',  '',               0, '0', '',  0),
    (76, 'Standard', 'OBX', 0, 8,  5, 'Observation Value',            0, 0, 'String', 'result_value',          '',  '',               0, '0', '',  0),
    (77, 'Standard', 'OBX', 0, 8,  6, 'Units',                        0, 0, 'String', 'result_units',          '',  '',               0, '0', '',  0),
    (78, 'Standard', 'OBX', 0, 8,  7, 'Reference Range',              0, 0, 'String', 'reference_range',       '',  '',               0, '0', '',  0),
    (79, 'Standard', 'OBX', 0, 8,  8, 'Abnormal Flags',               0, 0, 'String', 'abnormal_flag',         '',  '',               0, '0', '',  0),
    (80, 'Standard', 'OBX', 0, 8, 10, 'Nature of Abnormal Test',      0, 0, 'String', '',                      'N', '',               0, '0', '',  0),
    (81, 'Standard', 'OBX', 0, 8, 11, 'Observation Result Status',    0, 0, 'String', 'result_status',         '',  '',               0, '0', '',  0),
    (82, 'Standard', 'OBX', 0, 8, 14, 'Date/Time of the Observation', 0, 0, 'String', 'result_datetime',       '',  'yyyyMMddHHmmss', 0, '0', '',  0),
    (83, 'Standard', 'OBX', 0, 8, 15, 'Producer''s ID',               0, 0, 'String', 'performing_laboratory', '',  '',               0, '0', '',  0),
    (84, 'Standard', 'OBX', 0, 8, 16, 'Responsible Observer',         0, 0, 'String', 'responsible_observer',  '',  '',               0, '0', '',  0),
    (85, 'Standard', 'OBX', 0, 8, 17, 'Observation Method',           0, 0, 'String', 'observation_method',    '',  '',               0, '0', '',  0);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    (86, 'Standard', 'NTE', 3, 9, 1, 'Set ID - NTE',      3, 0, 'String', 'result_comment_set_id', '',   '', 0, '0', '',  0),
    (87, 'Standard', 'NTE', 3, 9, 2, 'Source of Comment', 3, 0, 'String', '',                      'L',  '', 0, '0', '',  0),
    (88, 'Standard', 'NTE', 3, 9, 3, 'Comment',           3, 0, 'String', 'result_comment',        '',   '', 0, '0', '',  0),
    (89, 'Standard', 'NTE', 3, 9, 4, 'Comment Type',      3, 0, 'String', '',                      'RE', '', 0, '0', '',  0);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    (90, 'Fixed Length', 'HDR', 0, 1, 1, 'Record Type',        1,  3, 'String', '',                   'HDR', '',         1, '1',  ' ',  -1),
    (91, 'Fixed Length', 'HDR', 0, 1, 2, 'File Number',        0,  6, 'String', 'file_number',        '',    '',         1, '4',  '0',   1),
    (92, 'Fixed Length', 'HDR', 0, 1, 3, 'Sending Laboratory', 0, 20, 'String', 'sending_laboratory', '',    '',         1, '10', ' ',  -1),
    (93, 'Fixed Length', 'HDR', 0, 1, 4, 'Creation Date',      0,  8, 'String', 'creation_date',      '',    'yyyyMMdd', 1, '30', '0',   1);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    (94, 'Fixed Length', 'PAT', 0, 2, 1, 'Record Type',        2,  3, 'String', '',                   'PAT', '',         1, '1',  ' ',  -1),
    (95, 'Fixed Length', 'PAT', 0, 2, 2, 'Patient Number',     0, 10, 'String', 'patient_number',     '',    '',         1, '4',  '0',   1),
    (96, 'Fixed Length', 'PAT', 0, 2, 3, 'Patient Last Name',  0, 25, 'String', 'patient_last_name',  '',    '',         1, '14', ' ',  -1),
    (97, 'Fixed Length', 'PAT', 0, 2, 4, 'Patient First Name', 0, 20, 'String', 'patient_first_name', '',    '',         1, '39', ' ',  -1),
    (98, 'Fixed Length', 'PAT', 0, 2, 5, 'Birth Date',         0,  8, 'String', 'patient_birth_date', '',    'yyyyMMdd', 1, '59', '0',   1),
    (99, 'Fixed Length', 'PAT', 0, 2, 6, 'Sex',                0,  1, 'String', 'patient_sex',        '',    '',         1, '67', ' ',  -1);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    (100, 'Fixed Length', 'ORD', 0, 3, 1, 'Record Type',        3,  3, 'String', '',                    'ORD', '',               1, '1',  ' ',  -1),
    (101, 'Fixed Length', 'ORD', 0, 3, 2, 'Order Number',       0, 12, 'String', 'order_number',        '',    '',               1, '4',  '0',   1),
    (102, 'Fixed Length', 'ORD', 0, 3, 3, 'Test Code',          0,  8, 'String', 'test_code',           '',    '',               1, '16', ' ',  -1),
    (103, 'Fixed Length', 'ORD', 0, 3, 4, 'Ordering Physician', 0, 25, 'String', 'ordering_physician',  '',    '',               1, '24', ' ',  -1),
    (104, 'Fixed Length', 'ORD', 0, 3, 5, 'Collection Time',    0, 14, 'String', 'collection_datetime', '',    'yyyyMMddHHmmss', 1, '49', '0',   1);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    (105, 'Fixed Length', 'RES', 1, 4, 1, 'Record Type',   4,  3, 'String', '',                  'RES', '', 1, '1',  ' ',  -1),
    (106, 'Fixed Length', 'RES', 1, 4, 2, 'Result Code',   1,  8, 'String', 'result_code',       '',    '', 1, '4',  ' ',  -1),
    (107, 'Fixed Length', 'RES', 1, 4, 3, 'Whole Part',    0,  7, 'String', 'result_whole_part', '',    '', 1, '12', ' ',   1),
    (108, 'Fixed Length', 'RES', 1, 4, 4, 'Decimal Point', 0,  1, 'String', '',                  '.',   '', 1, '19', ' ',  -1),
    (109, 'Fixed Length', 'RES', 1, 4, 5, 'Fraction',      0,  4, 'String', 'result_fraction',   '',    '', 1, '20', '0',  -1),
    (110, 'Fixed Length', 'RES', 1, 4, 6, 'Units',         0, 10, 'String', 'result_units',      '',    '', 1, '24', ' ',  -1),
    (111, 'Fixed Length', 'RES', 1, 4, 7, 'Abnormal Flag', 0,  2, 'String', 'abnormal_flag',     '',    '', 1, '34', ' ',   1);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    (112, 'Fixed Length', 'RES', 2, 5, 1, 'Record Type', 5,  3, 'String', '',            'RES', '', 1, '1',  ' ',  -1),
    (113, 'Fixed Length', 'RES', 2, 5, 2, 'Result Code', 2,  8, 'String', 'result_code', '',    '', 1, '4',  ' ',  -1),
    (114, 'Fixed Length', 'RES', 2, 5, 3, 'Result Text', 0, 60, 'String', 'result_text', '',    '', 1, '12', ' ',  -1);

INSERT INTO LabLineFieldConfig (
    id, Configuration, Line, LineIndex, MsgIndex, Position, Name, NameIndex, Length, DataType, LookupString,
    Constant, FormatString, FixedLength, ValidationString, PadChar, PadDirection) VALUES
    (115, 'Fixed Length', 'TRL', 0, 6, 1, 'Record Type',  6, 3, 'String', '',             'TRL', '', 1, '1', ' ',  -1),
    (116, 'Fixed Length', 'TRL', 0, 6, 2, 'Record Count', 0, 6, 'String', 'record_count', '',    '', 1, '4', '0',   1);

INSERT INTO data_extractor_fields_config (config_name, field_name) VALUES
    ('Standard', 'abnormal_flag'),
    ('Standard', 'admit_datetime'),
    ('Standard', 'attending_doctor'),
    ('Standard', 'clinical_information'),
    ('Standard', 'collection_datetime'),
    ('Standard', 'collection_end_datetime'),
    ('Standard', 'collection_volume'),
    ('Standard', 'consulting_doctor'),
    ('Standard', 'entering_organization'),
    ('Standard', 'filler_order_number'),
    ('Standard', 'hospital_service'),
    ('Standard', 'message_control_id'),
    ('Standard', 'message_datetime'),
    ('Standard', 'message_sequence_number'),
    ('Standard', 'mothers_maiden_name'),
    ('Standard', 'observation_method'),
    ('Standard', 'order_comment'),
    ('Standard', 'order_comment_set_id'),
    ('Standard', 'order_datetime'),
    ('Standard', 'order_entered_by'),
    ('Standard', 'order_priority'),
    ('Standard', 'order_result_status'),
    ('Standard', 'order_set_id'),
    ('Standard', 'order_status'),
    ('Standard', 'ordering_provider'),
    ('Standard', 'patient_account_number'),
    ('Standard', 'patient_address'),
    ('Standard', 'patient_alternate_id'),
    ('Standard', 'patient_birth_date'),
    ('Standard', 'patient_business_phone'),
    ('Standard', 'patient_class'),
    ('Standard', 'patient_comment'),
    ('Standard', 'patient_comment_set_id'),
    ('Standard', 'patient_external_id'),
    ('Standard', 'patient_first_name'),
    ('Standard', 'patient_home_phone'),
    ('Standard', 'patient_id'),
    ('Standard', 'patient_last_name'),
    ('Standard', 'patient_location'),
    ('Standard', 'patient_middle_name'),
    ('Standard', 'patient_name'),
    ('Standard', 'patient_race'),
    ('Standard', 'patient_sex'),
    ('Standard', 'patient_type'),
    ('Standard', 'performing_laboratory'),
    ('Standard', 'placer_group_number'),
    ('Standard', 'placer_order_number'),
    ('Standard', 'receiving_application'),
    ('Standard', 'receiving_facility'),
    ('Standard', 'reference_range'),
    ('Standard', 'referring_doctor'),
    ('Standard', 'report_datetime'),
    ('Standard', 'responsible_observer'),
    ('Standard', 'result_code'),
    ('Standard', 'result_comment'),
    ('Standard', 'result_comment_set_id'),
    ('Standard', 'result_datetime'),
    ('Standard', 'result_set_id'),
    ('Standard', 'result_status'),
    ('Standard', 'result_sub_id'),
    ('Standard', 'result_units'),
    ('Standard', 'result_value'),
    ('Standard', 'result_value_type'),
    ('Standard', 'sending_facility'),
    ('Standard', 'specimen_id'),
    ('Standard', 'specimen_received_datetime'),
    ('Standard', 'specimen_source'),
    ('Standard', 'test_code'),
    ('Standard', 'test_name'),
    ('Standard', 'visit_number');

INSERT INTO data_extractor_fields_config (config_name, field_name) VALUES
    ('Fixed Length', 'abnormal_flag'),
    ('Fixed Length', 'collection_datetime'),
    ('Fixed Length', 'creation_date'),
    ('Fixed Length', 'file_number'),
    ('Fixed Length', 'order_number'),
    ('Fixed Length', 'ordering_physician'),
    ('Fixed Length', 'patient_birth_date'),
    ('Fixed Length', 'patient_first_name'),
    ('Fixed Length', 'patient_last_name'),
    ('Fixed Length', 'patient_middle_name'),
    ('Fixed Length', 'patient_number'),
    ('Fixed Length', 'patient_sex'),
    ('Fixed Length', 'record_count'),
    ('Fixed Length', 'result_code'),
    ('Fixed Length', 'result_fraction'),
    ('Fixed Length', 'result_text'),
    ('Fixed Length', 'result_units'),
    ('Fixed Length', 'result_whole_part'),
    ('Fixed Length', 'sending_laboratory'),
    ('Fixed Length', 'test_code'),
    ('Fixed Length', 'test_name');
