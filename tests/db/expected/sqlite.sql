create table jxc_skin (
    id integer primary key autoincrement,
    skin_name varchar(64) null,
    a_name nvarchar(32) null
);
create table jxc_goodsclass (
    id integer primary key autoincrement,
    gc_sn varchar(16) null,
    gc_name nvarchar(64) null,
    gc_jm varchar(32) null,
    gc_key integer null,
    gc_pid integer null,
    gc_cid integer null
);
create index ix_goodsclass_gc_cid on jxc_goodsclass (gc_cid);
create index ix_goodsclass_gc_sn on jxc_goodsclass (gc_sn);
create table jxc_goods (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    g_name nvarchar(64) null,
    g_jm varchar(32) null,
    g_jj numeric(28,6) null,
    g_sj numeric(28,6) null,
    g_sj1 numeric(28,6) null,
    g_sj2 numeric(28,6) null,
    g_sj3 numeric(28,6) null,
    g_sj4 numeric(28,6) null,
    g_sj5 numeric(28,6) null,
    g_lsj numeric(28,6) null,
    g_zdkc integer null,
    g_tjsp bit null,
    g_sccs nvarchar(200) null,
    g_bz nvarchar(200) null,
    g_kc numeric(28,6) null,
    g_scjj numeric(28,6) null,
    g_cbj numeric(28,6) null,
    g_cgpl integer null,
    g_xspl integer null,
    g_jy bit null,
    g_iscf bit null,
    bl integer null,
    g_tclb integer null,
    g_tc numeric(28,6) null,
    g_xzsl numeric(28,6) null,
    g_sptm varchar(64) null,
    g_pjjj numeric(28,6) null,
    g_zbq varchar(64) null,
    g_dzll numeric(28,6) null,
    g_hyj numeric(28,6) null,
    g_tj numeric(28,6) null,
    g_tjqx bit null,
    g_ks varchar(32) null,
    g_js varchar(32) null,
    g_dxdz bit null,
    g_updatepos varchar(64) null,
    g_iszp bit null,
    g_zpjf numeric(28,6) null,
    g_clxs numeric(28,6) null,
    g_yjlx nvarchar(64) null,
    g_tym nvarchar(64) null,
    g_jc nvarchar(64) null,
    g_scxkz nvarchar(64) null,
    g_zczh varchar(32) null,
    g_cztj nvarchar(32) null,
    g_yhlx nvarchar(32) null,
    gsp_name nvarchar(32) null,
    hj_name nvarchar(64) null,
    g_qxlx nvarchar(16) null,
    g_sykz bit null,
    g_isjk bit null,
    g_dwpz bit null,
    g_dzjgm bit null,
    g_sy bit null,
    g_tcje numeric(28,6) null,
    g_bzq numeric(28,6) null,
    g_tssp bit null,
    g_tsjf numeric(28,6) null,
    gc_cid integer null,
    gc_sn varchar(16) null,
    dw_name nvarchar(64) null,
    gg_name nvarchar(64) null,
    color_name nvarchar(64) null,
    gg_jm varchar(64) null,
    color_jm varchar(64) null,
    ghs_sn varchar(8) null
);
create index ix_goods_g_sn on jxc_goods (g_sn);
create index ix_goods_g_jm on jxc_goods (g_jm);
create index ix_goods_g_sptm on jxc_goods (g_sptm);
create index ix_goods_gc_cid on jxc_goods (gc_cid);
create table jxc_color (
    id integer primary key autoincrement,
    color_sn varchar(8) null,
    color_name nvarchar(64) null,
    color_jm varchar(64) null,
    color_date varchar(32) null,
    color_click integer null
);
create table jxc_dw (
    id integer primary key autoincrement,
    dw_sn varchar(8) null,
    dw_name nvarchar(64) null
);
create table jxc_ggxh (
    id integer primary key autoincrement,
    gg_sn varchar(8) null,
    gg_name nvarchar(64) null
);
create table jxc_ckxx (
    id integer primary key autoincrement,
    ck_sn varchar(8) null,
    ck_name nvarchar(64) null,
    ck_jm varchar(32) null,
    ck_fzr varchar(32) null,
    ck_aname nvarchar(200) null,
    ck_asn varchar(200) null,
    ck_tele varchar(32) null,
    ck_address nvarchar(64) null,
    ck_note nvarchar(200) null,
    ck_default bit null,
    ck_pos bit null
);
create index ix_ckxx_ck_sn on jxc_ckxx (ck_sn);
create table jxc_kcsp (
    id integer primary key autoincrement,
    kc_sl numeric(28,6) null,
    kc_cbj numeric(28,6) null,
    kc_zsl numeric(28,6) null,
    kc_xssl numeric(28,6) null,
    g_sn varchar(32) null,
    ck_sn varchar(8) null
);
create index ix_kcsp_g_sn_ck_sn on jxc_kcsp (g_sn, ck_sn);
create index ix_kcsp_ck_sn_kc_sl_kc_cbj on jxc_kcsp (ck_sn, kc_sl, kc_cbj);
create table jxc_goodstmp (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    g_sptm varchar(64) null,
    a_name nvarchar(32) null
);
create table jxc_ghsxx (
    id integer primary key autoincrement,
    ghs_sn varchar(8) null,
    ghs_name nvarchar(128) null,
    ghs_jm varchar(128) null,
    ghs_lxr nvarchar(32) null,
    ghs_tele varchar(64) null,
    ghs_address nvarchar(128) null,
    ghs_note nvarchar(200) null,
    ghs_lwje numeric(28,6) null,
    ghs_default bit null,
    ghs_pl integer null,
    ck_sn varchar(8) null,
    ck_name nvarchar(64) null,
    ghs_forbid bit null,
    gt_name nvarchar(32) null,
    z_name nvarchar(32) null
);
create index ix_ghsxx_ghs_sn on jxc_ghsxx (ghs_sn);
create index ix_ghsxx_ghs_jm on jxc_ghsxx (ghs_jm);
create table jxc_goodsprice (
    id integer primary key autoincrement,
    gp_name varchar(32) null,
    gp_price numeric(28,6) null,
    g_sn varchar(32) null
);
create index ix_goodsprice_g_sn on jxc_goodsprice (g_sn);
create table jxc_import (
    id integer primary key autoincrement,
    i_fieldid varchar(32) null,
    i_fieldname varchar(32) null,
    i_tablename varchar(32) null
);
create table jxc_importchk (
    id integer primary key autoincrement,
    i_fieldid varchar(32) null,
    i_excelfield varchar(64) null,
    i_sele bit null,
    i_image integer null
);
create table jxc_importdata (
    id integer primary key autoincrement,
    id_exceldata varchar(128) null,
    id_status varchar(64) null,
    id_sele bit null,
    id_image integer null
);
create table jxc_goodsremind (
    id integer primary key autoincrement,
    gr_mode varchar(1) null,
    gr_date varchar(64) null,
    gr_note text null,
    gr_time varchar(32) null,
    gr_obj varchar(8) null,
    a_name nvarchar(32) null,
    g_sn varchar(32) null
);
create table jxc_ghstype (
    id integer primary key autoincrement,
    gt_sn varchar(8) null,
    gt_name nvarchar(32) null,
    gt_default bit null
);
create table jxc_zone (
    id integer primary key autoincrement,
    z_sn varchar(8) null,
    z_name nvarchar(32) null,
    z_jm varchar(32) null,
    z_default bit null
);
create table jxc_ghsfk (
    id integer primary key autoincrement,
    gf_sn varchar(16) null,
    gf_fkrq varchar(32) null,
    gf_fkfs varchar(32) null,
    gf_fkje numeric(28,6) null,
    gf_note nvarchar(200) null,
    gl_djh varchar(16) null,
    gf_je numeric(28,6) null,
    u_sn varchar(8) null,
    a_name nvarchar(32) null,
    ghs_sn varchar(8) null
);
create index ix_ghsfk_gl_djh on jxc_ghsfk (gl_djh);
create table jxc_khxx (
    id integer primary key autoincrement,
    kh_sn varchar(8) null,
    kh_name nvarchar(128) null,
    kh_jm varchar(128) null,
    kh_lxr nvarchar(32) null,
    kh_tele varchar(64) null,
    kh_address nvarchar(128) null,
    kh_note nvarchar(200) null,
    kh_lwje numeric(28,6) null,
    kh_default bit null,
    kh_pl integer null,
    ck_sn varchar(8) null,
    ck_name nvarchar(64) null,
    kh_forbid bit null,
    kh_uname nvarchar(200) null,
    kh_usn varchar(200) null,
    kt_sn varchar(8) null,
    kt_name nvarchar(32) null,
    z_name nvarchar(32) null
);
create index ix_khxx_kh_sn on jxc_khxx (kh_sn);
create index ix_khxx_kh_jm on jxc_khxx (kh_jm);
create table jxc_khtype (
    id integer primary key autoincrement,
    kt_sn varchar(8) null,
    kt_name nvarchar(32) null,
    kt_default bit null
);
create table jxc_khfk (
    id integer primary key autoincrement,
    kf_sn varchar(16) null,
    kf_fkrq varchar(32) null,
    kf_fkfs varchar(32) null,
    kf_fkje numeric(28,6) null,
    kf_note nvarchar(200) null,
    gl_djh varchar(16) null,
    kf_je numeric(28,6) null,
    kf_fdmc varchar(32) null,
    u_sn varchar(8) null,
    a_name nvarchar(32) null,
    kh_sn varchar(8) null
);
create index ix_khfk_gl_djh on jxc_khfk (gl_djh);
create table jxc_user (
    id integer primary key autoincrement,
    u_sn varchar(8) null,
    u_name nvarchar(32) null,
    u_jm varchar(32) null,
    u_duty nvarchar(32) null,
    u_tele varchar(32) null,
    u_address nvarchar(128) null,
    u_note nvarchar(200) null,
    u_tc numeric(28,6) null,
    u_cgpl integer null,
    u_xspl integer null,
    u_cg bit null,
    u_xs bit null,
    u_kc bit null,
    u_jy bit null,
    u_tcfs integer null,
    u_zdlr numeric(28,6) null,
    u_tctxt nvarchar(8) null,
    ck_sn varchar(8) null,
    ck_name nvarchar(64) null,
    u_fdmc varchar(64) null
);
create index ix_user_u_sn on jxc_user (u_sn);
create table jxc_admin (
    id integer primary key autoincrement,
    a_sn varchar(8) null,
    a_name nvarchar(32) null,
    r_sn varchar(8) null,
    a_zreoje numeric(28,6) null,
    a_pwd varchar(32) null,
    a_fdmc varchar(64) null
);
create table jxc_company (
    id integer primary key autoincrement,
    c_sn varchar(8) null,
    c_name nvarchar(32) null,
    c_jc nvarchar(32) null,
    c_tele varchar(32) null,
    c_address nvarchar(128) null
);
create table jxc_goodslist (
    id integer primary key autoincrement,
    gl_flag varchar(8) null,
    gl_djh varchar(16) null,
    gl_kdrq varchar(32) null,
    g_sn varchar(32) null,
    g_name nvarchar(64) null,
    g_jm varchar(32) null,
    dw_name nvarchar(64) null,
    gl_dj numeric(28,6) null,
    gl_cbj numeric(28,6) null,
    gl_zcb numeric(28,6) null,
    gl_sl numeric(28,6) null,
    gl_dzl numeric(28,6) null,
    gl_zje numeric(28,6) null,
    gl_je numeric(28,6) null,
    gl_tax numeric(28,6) null,
    gl_taxdj numeric(28,6) null,
    gl_taxje numeric(28,6) null,
    gl_lsj numeric(28,6) null,
    gl_lr numeric(28,6) null,
    gl_qxsl numeric(28,6) null,
    gl_checker nvarchar(32) null,
    gl_chkrq varchar(16) null,
    gl_sqsl numeric(28,6) null,
    gl_sqje numeric(28,6) null,
    gl_pjjj numeric(28,6) null,
    gl_kc numeric(28,6) null,
    gl_kczje numeric(28,6) null,
    gl_note nvarchar(200) null,
    gl_bz nvarchar(64) null,
    u_name nvarchar(32) null,
    a_name nvarchar(32) null,
    ck_sn varchar(8) null,
    ck_name nvarchar(64) null,
    ghs_sn varchar(8) null,
    ghs_name nvarchar(128) null,
    gg_name nvarchar(64) null,
    color_name nvarchar(64) null,
    gl_sysl numeric(28,6) null,
    id2 integer null,
    gl_djh2 varchar(16) null,
    gl_fdmc varchar(64) null,
    gl_dqkc numeric(28,6) null,
    t_cfsm nvarchar(32) null,
    gl_xm varchar(32) null,
    gl_cardno varchar(32) null,
    t_cfhm nvarchar(32) null,
    t_addr nvarchar(32) null,
    t_mobile nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_goodslist_g_sn_ck_sn_gl_kdrq_id on jxc_goodslist (g_sn, ck_sn, gl_kdrq, id);
create index ix_goodslist_gl_djh on jxc_goodslist (gl_djh);
create index ix_goodslist_gl_flag_gl_kdrq on jxc_goodslist (gl_flag, gl_kdrq);
create index ix_goodslist_ghs_sn_gl_kdrq on jxc_goodslist (ghs_sn, gl_kdrq);
create table jxc_djbz (
    id integer primary key autoincrement,
    dj_sn varchar(8) null,
    dj_name nvarchar(32) null,
    dj_pl integer null
);
create table jxc_jhsp (
    id integer primary key autoincrement,
    j_sn varchar(16) null,
    jh_dj numeric(28,6) null,
    jh_sl numeric(28,6) null,
    jh_je numeric(28,6) null,
    jh_tax numeric(28,6) null,
    jh_taxdj numeric(28,6) null,
    jh_taxje numeric(28,6) null,
    jh_zje numeric(28,6) null,
    jh_rksl numeric(28,6) null,
    jh_qxsl numeric(28,6) null,
    jh_zsl numeric(28,6) null,
    jh_dzl numeric(28,6) null,
    jh_bz nvarchar(64) null,
    id2 integer null,
    id3 integer null,
    gl_djh2 varchar(16) null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    g_sn varchar(32) null,
    a_name nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_jhsp_j_sn on jxc_jhsp (j_sn);
create index ix_jhsp_g_sn on jxc_jhsp (g_sn);
create index ix_jhsp_id2 on jxc_jhsp (id2);
create index ix_jhsp_id3 on jxc_jhsp (id3);
create table jxc_jhd (
    id integer primary key autoincrement,
    j_sn varchar(16) null,
    ghs_sn varchar(8) null,
    ck_sn varchar(8) null,
    j_jhrq varchar(32) null,
    j_yfje numeric(28,6) null,
    j_sfje numeric(28,6) null,
    u_sn varchar(8) null,
    j_note nvarchar(200) null,
    a_name nvarchar(32) null,
    j_sn2 varchar(16) null,
    j_yhje numeric(28,6) null,
    j_hkje numeric(28,6) null,
    j_th integer null,
    j_qk bit null,
    j_fpno varchar(32) null,
    j_fpje numeric(28,6) null,
    j_yf numeric(28,6) null,
    j_bzf numeric(28,6) null,
    j_yffs varchar(16) null,
    j_dhdid varchar(16) null,
    j_status integer null,
    j_checker nvarchar(32) null,
    j_chkrq varchar(16) null,
    j_jsfs integer null,
    j_kmmc nvarchar(32) null,
    ht_sn varchar(8) null,
    j_dhbz integer null
);
create index ix_jhd_j_sn on jxc_jhd (j_sn);
create index ix_jhd_j_jhrq on jxc_jhd (j_jhrq);
create index ix_jhd_ghs_sn_j_jhrq on jxc_jhd (ghs_sn, j_jhrq);
create table jxc_tempspbd (
    id integer primary key autoincrement,
    t_rq varchar(32) null,
    g_sn varchar(32) null,
    g_name nvarchar(64) null,
    t_cg numeric(28,6) null,
    t_ct numeric(28,6) null,
    t_cj numeric(28,6) null,
    t_xs numeric(28,6) null,
    t_xt numeric(28,6) null,
    t_xj numeric(28,6) null,
    a_name nvarchar(32) null
);
create table jxc_tempspxf (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    ts_dj numeric(28,6) null,
    ts_cbj numeric(28,6) null,
    ts_zcb numeric(28,6) null,
    ts_cbj2 numeric(28,6) null,
    ts_sl numeric(28,6) null,
    rid integer null,
    ts_je numeric(28,6) null,
    ts_tax numeric(28,6) null,
    ts_taxdj numeric(28,6) null,
    ts_taxje numeric(28,6) null,
    ts_lsj numeric(28,6) null,
    ts_zje numeric(28,6) null,
    a_name nvarchar(32) null,
    ts_dzl numeric(28,6) null,
    t_jhrq varchar(32) null,
    ts_note nvarchar(200) null,
    t_zp nvarchar(16) null,
    ghs_sn varchar(8) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create table jxc_wxfk (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    auth_code varchar(32) null,
    out_trade_no varchar(32) null,
    total_fee numeric(28,6) null,
    refund_fee numeric(28,6) null,
    mch_create_ip varchar(16) null,
    service varchar(64) null,
    out_refund_no varchar(32) null,
    err_code varchar(32) null,
    err_msg nvarchar(32) null,
    refund_id varchar(64) null,
    trade_type varchar(32) null,
    transaction_id varchar(64) null,
    out_transaction_id varchar(64) null,
    mch_id varchar(32) null,
    time_end varchar(32) null,
    wx_flag varchar(4) null,
    wx_time varchar(32) null,
    a_name nvarchar(32) null
);
create index ix_wxfk_gl_djh on jxc_wxfk (gl_djh);
create index ix_wxfk_out_trade_no on jxc_wxfk (out_trade_no);
create table jxc_tempyyfx (
    id integer primary key autoincrement,
    yy_rq varchar(32) null,
    yy_cgsl numeric(28,6) null,
    yy_cgje numeric(28,6) null,
    yy_xssl numeric(28,6) null,
    yy_xsje numeric(28,6) null,
    yy_xscb numeric(28,6) null,
    yy_xslr numeric(28,6) null,
    a_name nvarchar(32) null
);
create table jxc_xjyh (
    id integer primary key autoincrement,
    xj_rq varchar(32) null,
    gl_djh varchar(16) null,
    xj_dlx nvarchar(32) null,
    xj_je numeric(28,6) null,
    xj_ljje numeric(28,6) null,
    xj_chk varchar(1) null,
    u_name nvarchar(32) null,
    ghs_name nvarchar(128) null,
    ghs_sn varchar(8) null,
    ck_name nvarchar(64) null,
    xj_kmmc nvarchar(32) null,
    xj_note nvarchar(200) null,
    a_name nvarchar(32) null
);
create index ix_xjyh_xj_kmmc_xj_rq_id on jxc_xjyh (xj_kmmc, xj_rq, id);
create index ix_xjyh_gl_djh on jxc_xjyh (gl_djh);
create table jxc_shdj (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    ghs_sn varchar(8) null,
    ck_sn varchar(8) null,
    sh_rq varchar(32) null,
    sh_yfje numeric(28,6) null,
    sh_sfje numeric(28,6) null,
    sh_yhje numeric(28,6) null,
    u_sn varchar(8) null,
    sh_note nvarchar(200) null,
    a_name nvarchar(32) null,
    gl_djh2 varchar(16) null,
    sh_th integer null,
    sh_flag varchar(8) null,
    sh_djzt integer null,
    sh_kmmc nvarchar(32) null
);
create index ix_shdj_gl_djh on jxc_shdj (gl_djh);
create table jxc_shsp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    sh_dj numeric(28,6) null,
    sh_sl numeric(28,6) null,
    sh_zje numeric(28,6) null,
    sh_dzl numeric(28,6) null,
    sh_zhje numeric(28,6) null,
    a_name nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_shsp_gl_djh on jxc_shsp (gl_djh);
create table jxc_ghsbj (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    gb_bj numeric(28,6) null,
    ghs_sn varchar(8) null,
    gb_bjrq varchar(32) null,
    u_sn varchar(8) null,
    a_name nvarchar(32) null,
    gb_note nvarchar(200) null
);
create index ix_ghsbj_g_sn_ghs_sn on jxc_ghsbj (g_sn, ghs_sn);
create table jxc_thd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    ghs_sn varchar(8) null,
    ck_sn varchar(8) null,
    th_thrq varchar(32) null,
    th_yfje numeric(28,6) null,
    th_sfje numeric(28,6) null,
    th_hkje numeric(28,6) null,
    u_sn varchar(8) null,
    th_note nvarchar(200) null,
    th_status integer null,
    th_checker nvarchar(32) null,
    th_chkrq varchar(16) null,
    th_jsfs integer null,
    th_kmmc nvarchar(32) null,
    th_fpno varchar(32) null,
    th_fpje numeric(28,6) null,
    a_name nvarchar(32) null,
    th_qk bit null
);
create index ix_thd_gl_djh on jxc_thd (gl_djh);
create table jxc_thsp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    th_dj numeric(28,6) null,
    th_sl numeric(28,6) null,
    th_dzl numeric(28,6) null,
    th_bz nvarchar(64) null,
    id2 integer null,
    th_je numeric(28,6) null,
    th_tax numeric(28,6) null,
    th_taxdj numeric(28,6) null,
    th_taxje numeric(28,6) null,
    th_zje numeric(28,6) null,
    th_zsl numeric(28,6) null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    a_name nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_thsp_gl_djh on jxc_thsp (gl_djh);
create index ix_thsp_id2 on jxc_thsp (id2);
create index ix_thsp_th_bz on jxc_thsp (th_bz);
create table jxc_log (
    id integer primary key autoincrement,
    log_time varchar(32) null,
    a_name nvarchar(32) null,
    log_note nvarchar(200) null
);
create index ix_log_log_time on jxc_log (log_time);
create table jxc_fkfs (
    id integer primary key autoincrement,
    fk_sn varchar(8) null,
    fk_name nvarchar(32) null
);
create table jxc_fkmx (
    id integer primary key autoincrement,
    fk_sn varchar(16) null,
    gl_djh varchar(16) null,
    fk_je numeric(28,6) null,
    fk_lx bit null
);
create index ix_fkmx_fk_sn on jxc_fkmx (fk_sn);
create index ix_fkmx_gl_djh on jxc_fkmx (gl_djh);
create table jxc_bbgl (
    id integer primary key autoincrement,
    b_sn varchar(8) null,
    b_lx integer null,
    b_lxmc nvarchar(8) null,
    b_name nvarchar(32) null,
    b_file varchar(32) null
);
create table jxc_lsxssp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    ls_dj numeric(28,6) null,
    ls_sl numeric(28,6) null,
    ls_je numeric(28,6) null,
    ls_cbj numeric(28,6) null,
    ls_zcb numeric(28,6) null,
    ls_cbj2 numeric(28,6) null,
    ls_tax numeric(28,6) null,
    ls_taxdj numeric(28,6) null,
    ls_taxje numeric(28,6) null,
    ls_lsj numeric(28,6) null,
    ls_zje numeric(28,6) null,
    ls_cksl numeric(28,6) null,
    ls_qxsl numeric(28,6) null,
    a_name nvarchar(32) null,
    ls_dzl numeric(28,6) null,
    ls_bz nvarchar(64) null,
    id2 integer null,
    id3 integer null,
    ls_zhje numeric(28,6) null,
    ls_dhdj numeric(28,6) null,
    ls_zsl numeric(28,6) null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    g_zhxs numeric(28,6) null,
    ls_dhbz integer null,
    t_zp nvarchar(16) null,
    ghs_sn varchar(8) null,
    gl_djh2 varchar(16) null,
    t_cfsm nvarchar(32) null,
    ls_xm nvarchar(32) null,
    ls_cardno varchar(32) null,
    t_cfhm nvarchar(32) null,
    t_addr nvarchar(32) null,
    t_mobile nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_lsxssp_gl_djh on jxc_lsxssp (gl_djh);
create index ix_lsxssp_g_sn on jxc_lsxssp (g_sn);
create index ix_lsxssp_id2 on jxc_lsxssp (id2);
create index ix_lsxssp_id3 on jxc_lsxssp (id3);
create table jxc_lsxsd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    kh_sn varchar(8) null,
    ck_sn varchar(8) null,
    ls_xsrq varchar(32) null,
    ls_yfje numeric(28,6) null,
    ls_sfje numeric(28,6) null,
    u_sn varchar(8) null,
    ls_note nvarchar(200) null,
    a_name nvarchar(32) null,
    gl_djh2 varchar(16) null,
    ls_yhje numeric(28,6) null,
    ls_hkje numeric(28,6) null,
    ls_th integer null,
    ls_qk bit null,
    ls_fpno varchar(32) null,
    ls_fpje numeric(28,6) null,
    ls_yf numeric(28,6) null,
    ls_bzf numeric(28,6) null,
    ls_yffs varchar(16) null,
    ls_fdmc varchar(50) null,
    ls_hy varchar(50) null,
    ls_ckrq varchar(16) null,
    ls_status integer null,
    ls_checker nvarchar(32) null,
    ls_chkrq varchar(16) null,
    ls_zftype varchar(32) null,
    ls_transactionid varchar(64) null,
    ls_jsfs integer null,
    ls_kmmc nvarchar(32) null,
    ht_sn varchar(8) null,
    ls_dhbz integer null,
    ls_lr numeric(28,6) null,
    hy_sn varchar(8) null,
    pos_zffs integer null,
    pos_xj numeric(28,6) null,
    pos_czk numeric(28,6) null,
    pos_yhk numeric(28,6) null,
    pos_djq numeric(28,6) null,
    pos_rjid varchar(50) null
);
create index ix_lsxsd_gl_djh on jxc_lsxsd (gl_djh);
create index ix_lsxsd_ls_xsrq on jxc_lsxsd (ls_xsrq);
create index ix_lsxsd_kh_sn_ls_xsrq on jxc_lsxsd (kh_sn, ls_xsrq);
create table jxc_xsthsp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    th_dj numeric(28,6) null,
    th_cbj numeric(28,6) null,
    th_zcb numeric(28,6) null,
    th_sl numeric(28,6) null,
    id2 integer null,
    th_je numeric(28,6) null,
    th_tax numeric(28,6) null,
    th_taxdj numeric(28,6) null,
    th_taxje numeric(28,6) null,
    th_zje numeric(28,6) null,
    th_lsj numeric(28,6) null,
    th_zsl numeric(28,6) null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    g_zhxs numeric(28,6) null,
    a_name nvarchar(32) null,
    th_dzl numeric(28,6) null,
    th_bz nvarchar(64) null,
    th_zhje numeric(28,6) null,
    t_cfsm nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_xsthsp_gl_djh on jxc_xsthsp (gl_djh);
create index ix_xsthsp_id2 on jxc_xsthsp (id2);
create index ix_xsthsp_th_bz on jxc_xsthsp (th_bz);
create table jxc_xsthd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    kh_sn varchar(8) null,
    ck_sn varchar(8) null,
    th_xsrq varchar(32) null,
    th_yfje numeric(28,6) null,
    th_sfje numeric(28,6) null,
    th_hkje numeric(28,6) null,
    u_sn varchar(8) null,
    th_note nvarchar(200) null,
    a_name nvarchar(32) null,
    th_qk bit null,
    th_status integer null,
    th_checker nvarchar(32) null,
    th_chkrq varchar(16) null,
    th_jsfs integer null,
    th_kmmc nvarchar(32) null,
    th_fpno varchar(32) null,
    th_fpje numeric(28,6) null,
    th_fdmc varchar(50) null,
    th_lr numeric(28,6) null,
    hy_sn varchar(8) null,
    pos_zffs integer null,
    pos_xj numeric(28,6) null,
    pos_czk numeric(28,6) null,
    pos_yhk numeric(28,6) null,
    pos_djq numeric(28,6) null,
    pos_yhje numeric(28,6) null,
    pos_rjid varchar(50) null
);
create index ix_xsthd_gl_djh on jxc_xsthd (gl_djh);
create table jxc_khbj (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    kb_bj numeric(28,6) null,
    kh_sn varchar(8) null,
    kb_bjrq varchar(32) null,
    u_sn varchar(8) null,
    a_name nvarchar(32) null,
    kb_note nvarchar(200) null
);
create index ix_khbj_g_sn_kh_sn on jxc_khbj (g_sn, kh_sn);
create table jxc_lsxssptemp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    ls_dj numeric(28,6) null,
    ls_sl numeric(28,6) null,
    ls_je numeric(28,6) null,
    ls_cbj numeric(28,6) null,
    ls_zcb numeric(28,6) null,
    ls_cbj2 numeric(28,6) null,
    ls_tax numeric(28,6) null,
    ls_taxdj numeric(28,6) null,
    ls_taxje numeric(28,6) null,
    ls_lsj numeric(28,6) null,
    ls_zje numeric(28,6) null,
    ls_cksl numeric(28,6) null,
    ls_qxsl numeric(28,6) null,
    a_name nvarchar(32) null,
    ls_dzl numeric(28,6) null,
    ls_bz nvarchar(64) null,
    id2 integer null,
    id3 integer null,
    ls_zhje numeric(28,6) null,
    ls_dhdj numeric(28,6) null,
    ls_zsl numeric(28,6) null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    g_zhxs numeric(28,6) null,
    ls_dhbz integer null,
    ls_flag varchar(8) null,
    ghs_sn varchar(8) null,
    gl_djh2 varchar(16) null,
    ls_xsrq varchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_lsxssptemp_gl_djh on jxc_lsxssptemp (gl_djh);
create table jxc_hyfl (
    id integer primary key autoincrement,
    hl_sn varchar(8) null,
    hl_name nvarchar(32) null,
    hl_zk numeric(28,6) null,
    hl_jfxx numeric(28,6) null,
    hl_jfsx numeric(28,6) null
);
create table jxc_hyxx (
    id integer primary key autoincrement,
    hy_sn varchar(8) null,
    hy_fsn varchar(8) null,
    hy_bh varchar(32) null,
    hy_name nvarchar(32) null,
    hy_jm varchar(32) null,
    hy_status bit null,
    hl_sn varchar(8) null,
    hh_sn varchar(8) null,
    hy_mm varchar(16) null,
    hy_jf numeric(28,6) null,
    hy_zjf numeric(28,6) null,
    hy_zhje numeric(28,6) null,
    hy_ye numeric(28,6) null,
    hy_zje numeric(28,6) null,
    hy_jrrq varchar(16) null,
    hy_dqrq varchar(16) null,
    hy_sj bit null,
    hy_qx bit null,
    hy_cs integer null,
    hy_syje numeric(28,6) null,
    hy_xjsyje numeric(28,6) null,
    hy_note nvarchar(200) null,
    hy_fd varchar(32) null,
    hy_fdzt varchar(32) null,
    hy_hyidkh varchar(32) null,
    hy_glnl integer null,
    hy_sex nvarchar(2) null,
    hy_sr varchar(16) null,
    hy_tele varchar(32) null,
    hy_mobile varchar(16) null,
    hy_email varchar(64) null,
    hy_zjlx nvarchar(64) null,
    hy_zjhm nvarchar(64) null,
    hy_dwzy nvarchar(64) null,
    hy_address nvarchar(64) null,
    hy_qtxx nvarchar(64) null,
    hy_cg bit null,
    hy_chk bit null
);
create index ix_hyxx_hy_sn on jxc_hyxx (hy_sn);
create index ix_hyxx_hy_bh on jxc_hyxx (hy_bh);
create index ix_hyxx_hy_jm on jxc_hyxx (hy_jm);
create index ix_hyxx_hy_mobile on jxc_hyxx (hy_mobile);
create table jxc_hyjbxx (
    id integer primary key autoincrement,
    hj_sn varchar(8) null,
    hj_jbid varchar(16) null,
    hj_jbmc nvarchar(32) null,
    hj_zkl numeric(28,6) null,
    hj_jfxx numeric(28,6) null,
    hj_jfsx numeric(28,6) null
);
create table jxc_posxsd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    hy_sn varchar(8) null,
    pos_xsrq varchar(32) null,
    kh_sn varchar(8) null,
    ck_sn varchar(8) null,
    pos_yfje numeric(28,6) null,
    pos_sfje numeric(28,6) null,
    pos_mlje numeric(28,6) null,
    a_name nvarchar(32) null,
    u_sn varchar(8) null,
    pos_note nvarchar(200) null,
    pos_zffs integer null,
    pos_xj numeric(28,6) null,
    pos_czk numeric(28,6) null,
    pos_yhk numeric(28,6) null,
    pos_djq numeric(28,6) null,
    pos_yhje numeric(28,6) null,
    pos_yhzkje numeric(28,6) null,
    pos_wxje numeric(28,6) null,
    pos_zfbje numeric(28,6) null,
    pos_zftype varchar(32) null,
    pos_transactionid varchar(64) null,
    pos_rjid varchar(50) null,
    pos_bcjf numeric(28,6) null,
    pos_jfye numeric(28,6) null,
    pos_zlje numeric(28,6) null,
    pos_zjf numeric(28,6) null
);
create index ix_posxsd_gl_djh on jxc_posxsd (gl_djh);
create index ix_posxsd_pos_xsrq on jxc_posxsd (pos_xsrq);
create index ix_posxsd_hy_sn on jxc_posxsd (hy_sn);
create index ix_posxsd_pos_rjid on jxc_posxsd (pos_rjid);
create table jxc_posxssp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    pos_dj numeric(28,6) null,
    pos_sl numeric(28,6) null,
    pos_zje numeric(28,6) null,
    t_zp nvarchar(16) null,
    a_name nvarchar(32) null,
    pos_dzl numeric(28,6) null,
    pos_cbj numeric(28,6) null,
    pos_zcb numeric(28,6) null,
    pos_lsj numeric(28,6) null,
    pos_zsl numeric(28,6) null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    g_zhxs numeric(28,6) null,
    pos_zhje numeric(28,6) null,
    t_cfsm nvarchar(32) null,
    pos_xm nvarchar(32) null,
    pos_cardno varchar(32) null,
    t_cfhm nvarchar(32) null,
    t_addr nvarchar(32) null,
    t_mobile nvarchar(32) null,
    t_scrq varchar(16) null,
    t_ph varchar(64) null,
    t_yxq varchar(16) null
);
create index ix_posxssp_gl_djh on jxc_posxssp (gl_djh);
create index ix_posxssp_g_sn on jxc_posxssp (g_sn);
create table jxc_jfsz (
    id integer primary key autoincrement,
    jf_jfgz integer null,
    jf_mfje numeric(28,6) null,
    jf_djjf bit null,
    jf_jsrjf integer null,
    jf_jsrjl integer null,
    jf_dbjf integer null,
    jf_dbrq1 varchar(32) null,
    jf_dbrq2 varchar(32) null,
    jf_srjflx integer null,
    jf_srjfbs integer null,
    jf_srjfts integer null,
    jf_yelj bit null,
    jf_hysk bit null,
    jf_qchy bit null,
    jf_xgxf bit null,
    jf_hyr integer null,
    jf_hyr1 varchar(32) null,
    jf_hyr2 varchar(32) null,
    jf_hyrmy1 varchar(2) null,
    jf_hyrmy2 varchar(2) null,
    jf_hyrzk numeric(28,6) null,
    jf_ick bit null,
    jf_icktype integer null
);
create table jxc_jfdh (
    id integer primary key autoincrement,
    hy_sn varchar(8) null,
    jf_xfjf numeric(28,6) null,
    jf_rq varchar(32) null,
    a_name nvarchar(32) null,
    jf_note nvarchar(200) null
);
create index ix_jfdh_hy_sn on jxc_jfdh (hy_sn);
create table jxc_posprint (
    id integer primary key autoincrement,
    pp_zjdy bit null,
    pp_dkqx bit null,
    pp_zdqz bit null,
    pp_dyfs integer null,
    pp_dyj integer null,
    pp_kd integer null,
    pp_bt1 nvarchar(64) null,
    pp_bt2 nvarchar(64) null,
    pp_jz1 nvarchar(64) null,
    pp_jz2 nvarchar(64) null,
    pp_khs varchar(2) null,
    pp_fs varchar(4) null,
    pp_xfjf bit null,
    pp_fkfs bit null,
    pp_jedx bit null,
    pp_bzxx bit null
);
create table jxc_gnb (
    id integer primary key autoincrement,
    gn_name nvarchar(32) null,
    gn_jz integer null
);
create table jxc_posfont (
    id integer primary key autoincrement,
    font_size varchar(32) null
);
create table jxc_yhzh (
    id integer primary key autoincrement,
    yh_sn varchar(8) null,
    yh_type varchar(32) null,
    yh_name nvarchar(32) null,
    yh_zje numeric(28,6) null,
    yh_note nvarchar(200) null
);
create table jxc_kcdbd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    ck_out varchar(8) null,
    ck_in varchar(8) null,
    db_dbrq varchar(32) null,
    db_status integer null,
    db_checker nvarchar(32) null,
    db_chkrq varchar(16) null,
    u_sn varchar(8) null,
    db_note nvarchar(200) null,
    a_name nvarchar(32) null
);
create index ix_kcdbd_gl_djh on jxc_kcdbd (gl_djh);
create table jxc_dbsp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    db_sl numeric(28,6) null,
    db_dj numeric(28,6) null,
    db_sj numeric(28,6) null,
    db_zje numeric(28,6) null,
    db_zsl numeric(28,6) null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    a_name nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_dbsp_gl_djh on jxc_dbsp (gl_djh);
create table jxc_cfd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    ck_sn varchar(8) null,
    cf_cfrq varchar(32) null,
    g_sn varchar(32) null,
    cf_cbj numeric(28,6) null,
    cf_sl numeric(28,6) null,
    cf_status integer null,
    cf_checker nvarchar(32) null,
    cf_chkrq varchar(16) null,
    u_sn varchar(8) null,
    a_name nvarchar(32) null,
    cf_note nvarchar(200) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_cfd_gl_djh on jxc_cfd (gl_djh);
create table jxc_cfsp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    cf_dj numeric(28,6) null,
    cf_sl numeric(28,6) null,
    cf_zje numeric(28,6) null,
    ck_sn varchar(8) null,
    a_name nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_cfsp_gl_djh on jxc_cfsp (gl_djh);
create table jxc_kbd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    ck_sn varchar(8) null,
    kb_kbrq varchar(32) null,
    g_sn varchar(32) null,
    kb_cbj numeric(28,6) null,
    kb_sl numeric(28,6) null,
    kb_status integer null,
    kb_checker nvarchar(32) null,
    kb_chkrq varchar(16) null,
    u_sn varchar(8) null,
    a_name nvarchar(32) null,
    kb_note nvarchar(200) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_kbd_gl_djh on jxc_kbd (gl_djh);
create table jxc_kbsp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    kb_dj numeric(28,6) null,
    kb_sl numeric(28,6) null,
    kb_zje numeric(28,6) null,
    ck_sn varchar(8) null,
    a_name nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_kbsp_gl_djh on jxc_kbsp (gl_djh);
create table jxc_yyfy (
    id integer primary key autoincrement,
    fy_rq varchar(32) null,
    gl_djh varchar(16) null,
    fy_lx nvarchar(64) null,
    fy_je numeric(28,6) null,
    fy_flag varchar(1) null,
    u_sn varchar(8) null,
    de_sn varchar(8) null,
    fy_kmmc nvarchar(32) null,
    fy_chk varchar(1) null,
    fy_note nvarchar(200) null,
    a_name nvarchar(32) null,
    fy_sc nvarchar(16) null
);
create index ix_yyfy_gl_djh on jxc_yyfy (gl_djh);
create index ix_yyfy_fy_rq on jxc_yyfy (fy_rq);
create table jxc_cfsptmp (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    g_name nvarchar(64) null,
    tmp_cksl numeric(28,6) null,
    tmp_ckje numeric(28,6) null,
    tmp_rksl numeric(28,6) null,
    tmp_rkje numeric(28,6) null,
    tmp_currkc numeric(28,6) null,
    tmp_kc numeric(28,6) null,
    a_name nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create table jxc_bsd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    ck_sn varchar(8) null,
    bs_bsrq varchar(32) null,
    bs_status integer null,
    bs_checker nvarchar(32) null,
    bs_chkrq varchar(16) null,
    u_sn varchar(8) null,
    bs_note nvarchar(200) null,
    a_name nvarchar(32) null
);
create index ix_bsd_gl_djh on jxc_bsd (gl_djh);
create table jxc_bssp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    bs_sl numeric(28,6) null,
    bs_dj numeric(28,6) null,
    bs_zje numeric(28,6) null,
    bs_note nvarchar(200) null,
    a_name nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_bssp_gl_djh on jxc_bssp (gl_djh);
create table jxc_byd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    ck_sn varchar(8) null,
    by_byrq varchar(32) null,
    by_status integer null,
    by_checker nvarchar(32) null,
    by_chkrq varchar(16) null,
    u_sn varchar(8) null,
    by_note nvarchar(200) null,
    a_name nvarchar(32) null
);
create index ix_byd_gl_djh on jxc_byd (gl_djh);
create table jxc_bysp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    by_sl numeric(28,6) null,
    by_dj numeric(28,6) null,
    by_zje numeric(28,6) null,
    by_note nvarchar(200) null,
    a_name nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_bysp_gl_djh on jxc_bysp (gl_djh);
create table jxc_kcpd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    pd_sl numeric(28,6) null,
    kc_sl numeric(28,6) null,
    pd_rq varchar(32) null,
    pd_note nvarchar(200) null,
    pd_status integer null,
    pd_checker nvarchar(32) null,
    pd_chkrq varchar(16) null,
    ck_sn varchar(8) null,
    u_sn varchar(8) null,
    a_name nvarchar(32) null
);
create index ix_kcpd_gl_djh on jxc_kcpd (gl_djh);
create index ix_kcpd_ck_sn_pd_status_pd_rq on jxc_kcpd (ck_sn, pd_status, pd_rq);
create table jxc_kcpdtemp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    pd_sl numeric(28,6) null,
    sp_sl numeric(28,6) null,
    ck_name varchar(32) null,
    pd_rq varchar(32) null,
    pd_status bit null,
    a_name nvarchar(32) null,
    t_ph varchar(64) null,
    t_yxq varchar(16) null
);
create table jxc_ckjth (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    jt_sl numeric(28,6) null,
    ghs_name nvarchar(128) null,
    jt_flag varchar(1) null,
    jt_rq varchar(32) null
);
create table jxc_kcjs (
    id integer primary key autoincrement,
    js_rq varchar(16) null,
    js_sl numeric(28,6) null,
    js_zje numeric(28,6) null,
    js_xssl numeric(28,6) null,
    js_xsje numeric(28,6) null,
    js_cgsl numeric(28,6) null,
    js_cgje numeric(28,6) null,
    js_xslr numeric(28,6) null,
    js_xscb numeric(28,6) null,
    ck_sn varchar(8) null
);
create index ix_kcjs_js_rq_ck_sn on jxc_kcjs (js_rq, ck_sn);
create table jxc_htgl (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    ht_sn varchar(8) null,
    ht_rq varchar(32) null,
    ht_name nvarchar(64) null,
    ht_jm varchar(32) null,
    ht_note text null,
    ht_path nvarchar(128) null,
    ht_fujian varchar(32) null,
    ht_fjname nvarchar(64) null,
    ht_type varchar(4) null,
    u_sn varchar(8) null,
    ghs_sn varchar(8) null
);
create index ix_htgl_ghs_sn on jxc_htgl (ghs_sn);
create table jxc_ftpcs (
    id integer primary key autoincrement,
    ftp_ip varchar(32) null,
    ftp_user varchar(32) null,
    ftp_pwd varchar(32) null,
    ftp_port varchar(8) null,
    ftp_folder nvarchar(32) null
);
create table jxc_khhtgl (
    id integer primary key autoincrement,
    ht_sn varchar(8) null,
    ht_rq varchar(32) null,
    ht_name nvarchar(64) null,
    ht_path nvarchar(128) null,
    ht_jm varchar(32) null,
    u_sn varchar(8) null,
    kh_sn varchar(8) null
);
create index ix_khhtgl_kh_sn on jxc_khhtgl (kh_sn);
create table jxc_ghslx (
    id integer primary key autoincrement,
    lx_rq varchar(32) null,
    lx_note text null,
    u_sn varchar(8) null,
    ghs_sn varchar(8) null
);
create index ix_ghslx_ghs_sn on jxc_ghslx (ghs_sn);
create table jxc_khlx (
    id integer primary key autoincrement,
    lx_rq varchar(32) null,
    lx_note text null,
    u_sn varchar(8) null,
    kh_sn varchar(8) null
);
create index ix_khlx_kh_sn on jxc_khlx (kh_sn);
create table jxc_ywyrz (
    id integer primary key autoincrement,
    rz_rq varchar(32) null,
    rz_note text null,
    u_sn varchar(8) null
);
create table jxc_jhgl (
    id integer primary key autoincrement,
    kh_sn varchar(8) null,
    jh_rq varchar(32) null,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    jh_dj numeric(28,6) null,
    jh_sl numeric(28,6) null,
    ck_sn varchar(8) null,
    u_sn varchar(8) null,
    a_name nvarchar(32) null,
    jh_note nvarchar(200) null,
    jh_flag varchar(2) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_jhgl_gl_djh on jxc_jhgl (gl_djh);
create table jxc_tx (
    id integer primary key autoincrement,
    tx_dx varchar(32) null,
    tx_fs integer null,
    tx_fstxt varchar(16) null,
    tx_sj varchar(64) null,
    tx_note nvarchar(200) null,
    tx_tjsj varchar(32) null,
    a_name nvarchar(32) null,
    tx_lb integer null,
    tx_flag varchar(1) null,
    tx_ts varchar(4) null,
    tx_zt varchar(1) null,
    g_sn varchar(32) null
);
create table jxc_fylx (
    id integer primary key autoincrement,
    fy_lx nvarchar(64) null,
    fy_fx integer null,
    fy_note nvarchar(200) null
);
create table jxc_zcmx (
    id integer primary key autoincrement,
    zc_rq varchar(32) null,
    zc_je numeric(28,6) null,
    zc_lx nvarchar(32) null,
    zc_note nvarchar(200) null,
    u_name nvarchar(32) null,
    a_name nvarchar(32) null
);
create table jxc_gdzc (
    id integer primary key autoincrement,
    zc_bh varchar(16) null,
    zc_mc nvarchar(32) null,
    zc_rq varchar(32) null,
    zc_lx nvarchar(32) null,
    zc_dw nvarchar(32) null,
    zc_je numeric(28,6) null,
    zc_bm nvarchar(32) null,
    zc_zjys varchar(4) null,
    zc_ghs nvarchar(32) null,
    zc_nbfl nvarchar(32) null,
    zc_ggxh nvarchar(32) null,
    zc_note nvarchar(200) null,
    u_name nvarchar(32) null,
    a_name nvarchar(32) null
);
create table jxc_backup (
    id integer primary key autoincrement,
    back_auto bit null,
    back_sj integer null,
    back_days integer null,
    back_path nvarchar(200) null,
    back_exit bit null
);
create table jxc_fd (
    id integer primary key autoincrement,
    fd_sn varchar(8) null,
    fd_name varchar(64) null,
    fd_dcrq varchar(32) null
);
create table jxc_lsfdxx (
    id integer primary key autoincrement,
    fd_sn varchar(8) null,
    fd_name varchar(64) null,
    fd_lxr varchar(32) null,
    fd_tele varchar(32) null,
    fd_address varchar(128) null,
    fd_note nvarchar(200) null
);
create table jxc_nj (
    id integer primary key autoincrement,
    nj_jsrq varchar(16) null,
    nj_year varchar(16) null,
    nj_xm nvarchar(32) null,
    nj_ds integer null,
    nj_sl numeric(28,6) null,
    nj_je numeric(28,6) null
);
create table jxc_tm (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    tm_sl numeric(28,6) null
);
create table jxc_txm (
    id integer primary key autoincrement,
    tm_code varchar(64) null
);
create table jxc_tmdy (
    id integer primary key autoincrement,
    tm_width integer null,
    tm_height integer null,
    tm_num integer null,
    tm_padding integer null,
    tm_titledisp bit null,
    tm_title varchar(64) null,
    tm_titleleft integer null,
    tm_titletop integer null,
    tm_titlepadding integer null,
    tm_titlealign integer null,
    tm_code varchar(64) null,
    tm_codeleft integer null,
    tm_codetop integer null,
    tm_codeheight integer null,
    tm_codetype integer null,
    tm_codedisp bit null,
    tm_footdisp bit null,
    tm_foot varchar(64) null,
    tm_footleft integer null,
    tm_foottop integer null,
    tm_footpadding integer null,
    tm_footalign integer null
);
create table jxc_role (
    id integer primary key autoincrement,
    r_sn varchar(8) null,
    r_name nvarchar(32) null,
    cggl varchar(64) null,
    xsgl varchar(64) null,
    kcgl varchar(64) null,
    wlzk varchar(64) null,
    tjgl varchar(64) null,
    rcgl varchar(64) null,
    gspgl varchar(64) null,
    qtcz varchar(64) null
);
create table jxc_mryt (
    id integer primary key autoincrement,
    mr_ts nvarchar(200) null,
    mr_state varchar(1) null,
    mr_rq varchar(32) null
);
create table jxc_jbgl (
    id integer primary key autoincrement,
    jb_time varchar(32) null,
    jb_curruser nvarchar(32) null,
    jb_nextuser nvarchar(32) null,
    jb_jjzje numeric(28,6) null,
    jb_bbskzje numeric(28,6) null,
    jb_sjyyk numeric(28,6) null,
    jb_xfyyk numeric(28,6) null,
    jb_note nvarchar(200) null
);
create table jxc_poshb (
    id integer primary key autoincrement,
    jb_begintime varchar(32) null,
    jb_endtime varchar(32) null,
    a_name nvarchar(32) null,
    jb_xjje numeric(28,6) null,
    jb_czkje numeric(28,6) null,
    jb_yhkje numeric(28,6) null,
    jb_djqje numeric(28,6) null,
    jb_wxje numeric(28,6) null,
    jb_zfbje numeric(28,6) null,
    jb_zlje numeric(28,6) null,
    jb_mlje numeric(28,6) null,
    jb_thje numeric(28,6) null,
    jb_rkje numeric(28,6) null,
    jb_ckje numeric(28,6) null,
    jb_xsje numeric(28,6) null,
    jb_xjje2 numeric(28,6) null,
    jb_yhkje2 numeric(28,6) null,
    jb_wxje2 numeric(28,6) null,
    jb_zfbje2 numeric(28,6) null,
    jb_zlje2 numeric(28,6) null,
    jb_xfje numeric(28,6) null,
    jb_yjje numeric(28,6) null,
    jb_sjje numeric(28,6) null,
    jb_note nvarchar(64) null
);
create table jxc_xtcs (
    id integer primary key autoincrement,
    cs_cgdj integer null,
    cs_xsdj integer null,
    cs_xgdj bit null,
    cs_kc bit null,
    cs_ysdh bit null,
    cs_spbh bit null,
    cs_ct bit null,
    cs_xt bit null,
    cs_cgyh integer null,
    cs_xsyh integer null,
    cs_shdj bit null,
    cs_shtc bit null,
    cs_xjyh bit null,
    cs_cbjs integer null,
    cs_xsws integer null,
    cs_zjews bit null,
    cs_jews integer null,
    cs_ts varchar(64) null,
    cs_posdj bit null,
    cs_tjcyjf bit null,
    cs_posfkws integer null,
    cs_posblur bit null,
    cs_poshooktoday bit null,
    cs_barcode bit null,
    cs_barunique bit null,
    cs_zerocost bit null,
    cs_possk bit null,
    cs_xsjgts integer null,
    cs_djsh integer null,
    cs_employdate varchar(20) null,
    cs_wxzf bit null,
    cs_mchid varchar(64) null,
    cs_key varchar(64) null,
    cs_kp bit null,
    cs_hs bit null,
    cs_tax numeric(28,6) null,
    cs_sms bit null,
    cs_hcj bit null,
    cs_sprk bit null,
    cs_spck bit null,
    cs_lsj bit null,
    cs_scjh bit null,
    cs_scrk bit null,
    cs_spcz bit null,
    cs_dbdj integer null,
    cs_jhzk bit null,
    cs_zdzk numeric(28,6) null,
    cs_ht bit null,
    cs_kddy bit null,
    cs_fzdw bit null,
    cs_cgje integer null,
    cs_xsje integer null,
    cs_djrq integer null,
    cs_dysx integer null,
    cs_cs001 bit null,
    cs_cs002 bit null,
    cs_cs003 bit null,
    cs_cs004 integer null,
    cs_cs005 integer null,
    cs_cs006 integer null,
    cs_cs007 bit null,
    cs_cs008 bit null,
    cs_cs009 bit null,
    cs_cs010 bit null,
    cs_cs011 bit null,
    cs_cs012 bit null,
    cs_cs013 bit null,
    cs_cs014 bit null,
    cs_cs015 bit null,
    cs_cs016 bit null,
    cs_cs017 bit null,
    cs_cs018 bit null,
    cs_cs019 bit null,
    cs_cs020 bit null,
    cs_bcqdy bit null,
    cs_djzddy bit null,
    cs_djzddysl integer null,
    cs_tmzdsc bit null,
    cs_tmtype integer null,
    cs_tmscff integer null,
    cs_posrq bit null
);
create table jxc_txdisp (
    id integer primary key autoincrement,
    t_mryt varchar(1) null,
    t_sjtx varchar(1) null
);
create table jxc_dxdz (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    hl_sn varchar(8) null,
    hl_dxzk numeric(28,6) null
);
create index ix_dxdz_g_sn_hl_sn on jxc_dxdz (g_sn, hl_sn);
create table jxc_czxf (
    id integer primary key autoincrement,
    hy_sn varchar(8) null,
    xf_je numeric(28,6) null,
    hy_rq varchar(32) null,
    a_admin nvarchar(32) null,
    hy_bz nvarchar(64) null
);
create index ix_czxf_hy_sn on jxc_czxf (hy_sn);
create table jxc_postable (
    id integer primary key autoincrement,
    posnumber varchar(16) null,
    posname nvarchar(32) null,
    posunique varchar(32) null
);
create table jxc_posthsp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    pos_dj numeric(28,6) null,
    pos_xssl numeric(28,6) null,
    pos_sl numeric(28,6) null,
    pos_zje numeric(28,6) null,
    a_name nvarchar(32) null,
    pos_dzl numeric(28,6) null,
    pos_cbj numeric(28,6) null,
    pos_zcb numeric(28,6) null,
    pos_lsj numeric(28,6) null,
    pos_zsl numeric(28,6) null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    g_zhxs numeric(28,6) null,
    pos_zhje numeric(28,6) null,
    t_scrq varchar(16) null,
    t_ph varchar(64) null,
    t_yxq varchar(16) null
);
create index ix_posthsp_gl_djh on jxc_posthsp (gl_djh);
create table jxc_posthd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    hy_sn varchar(8) null,
    pos_xsrq varchar(32) null,
    kh_sn varchar(8) null,
    ck_sn varchar(8) null,
    pos_yfje numeric(28,6) null,
    pos_sfje numeric(28,6) null,
    pos_mlje numeric(28,6) null,
    a_name nvarchar(32) null,
    u_sn varchar(8) null,
    pos_note nvarchar(200) null,
    pos_zffs integer null,
    pos_xj numeric(28,6) null,
    pos_czk numeric(28,6) null,
    pos_yhk numeric(28,6) null,
    pos_djq numeric(28,6) null,
    pos_yhje numeric(28,6) null,
    pos_yhzkje numeric(28,6) null,
    pos_wxje numeric(28,6) null,
    pos_zfbje numeric(28,6) null,
    pos_zftype varchar(32) null,
    pos_transactionid varchar(64) null,
    pos_rjid varchar(50) null,
    pos_bcjf numeric(28,6) null,
    pos_jfye numeric(28,6) null,
    pos_zlje numeric(28,6) null,
    pos_zjf numeric(28,6) null
);
create index ix_posthd_gl_djh on jxc_posthd (gl_djh);
create index ix_posthd_pos_xsrq on jxc_posthd (pos_xsrq);
create index ix_posthd_pos_rjid on jxc_posthd (pos_rjid);
create table jxc_hyxssp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    hy_dj numeric(28,6) null,
    hy_sl numeric(28,6) null,
    hy_zje numeric(28,6) null,
    a_name nvarchar(32) null,
    hy_dzl numeric(28,6) null,
    hy_zhje numeric(28,6) null,
    t_ph varchar(64) null,
    t_yxq varchar(16) null
);
create index ix_hyxssp_gl_djh on jxc_hyxssp (gl_djh);
create table jxc_hyxsd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    hy_sn varchar(8) null,
    hy_xsrq varchar(32) null,
    hy_je numeric(28,6) null,
    a_name nvarchar(32) null,
    u_sn varchar(8) null,
    hy_note nvarchar(200) null,
    hy_zffs integer null,
    hy_xj numeric(28,6) null,
    hy_czk numeric(28,6) null,
    hy_yhk numeric(28,6) null,
    hy_djq numeric(28,6) null,
    hy_zfje numeric(28,6) null,
    hy_bcjf numeric(28,6) null,
    hy_jfye numeric(28,6) null,
    hy_zhje numeric(28,6) null,
    hy_zjf numeric(28,6) null
);
create index ix_hyxsd_gl_djh on jxc_hyxsd (gl_djh);
create index ix_hyxsd_hy_sn on jxc_hyxsd (hy_sn);
create table jxc_poskx (
    id integer primary key autoincrement,
    pos_com varchar(8) null
);
create table jxc_dhd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    hy_sn varchar(8) null,
    dh_dhrq varchar(32) null,
    dh_sl numeric(28,6) null,
    dh_jf numeric(28,6) null,
    dh_note nvarchar(200) null,
    a_name nvarchar(32) null,
    ck_sn varchar(8) null
);
create index ix_dhd_gl_djh on jxc_dhd (gl_djh);
create index ix_dhd_hy_sn on jxc_dhd (hy_sn);
create table jxc_dhzp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    dh_zpjf numeric(28,6) null,
    dh_sl numeric(28,6) null,
    dh_jf numeric(28,6) null,
    a_name nvarchar(32) null
);
create index ix_dhzp_gl_djh on jxc_dhzp (gl_djh);
create table jxc_crk (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    crk_rq varchar(32) null,
    crk_flag varchar(1) null,
    crk_je numeric(28,6) null,
    crk_note nvarchar(200) null,
    a_name nvarchar(32) null,
    a_name2 nvarchar(32) null
);
create index ix_crk_gl_djh on jxc_crk (gl_djh);
create index ix_crk_crk_rq on jxc_crk (crk_rq);
create table jxc_rjd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    rj_rq varchar(32) null,
    rj_sl numeric(28,6) null,
    rj_je numeric(28,6) null,
    a_name nvarchar(32) null
);
create index ix_rjd_gl_djh on jxc_rjd (gl_djh);
create table jxc_rjsp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    rj_xsrq varchar(32) null,
    g_sn varchar(32) null,
    rj_sl numeric(28,6) null,
    rj_je numeric(28,6) null,
    a_name nvarchar(32) null
);
create index ix_rjsp_gl_djh on jxc_rjsp (gl_djh);
create table jxc_sptjtmp (
    id integer primary key autoincrement,
    hl_sn varchar(8) null,
    hl_name nvarchar(32) null,
    g_name varchar(32) null,
    sp_sj numeric(28,6) null,
    sp_dzll numeric(28,6) null,
    sp_zk numeric(28,6) null,
    sp_dxdz varchar(8) null,
    sp_zzzk numeric(28,6) null,
    sp_tjsp varchar(8) null,
    sp_tj numeric(28,6) null,
    sp_zzdj numeric(28,6) null,
    a_name nvarchar(32) null
);
create table jxc_sptjb (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    tj_rq varchar(32) null,
    tj_nr varchar(255) null,
    a_name nvarchar(32) null
);
create index ix_sptjb_g_sn on jxc_sptjb (g_sn);
create table jxc_tkc (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    t_jhrq varchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null,
    t_sl numeric(28,6) null,
    ck_sn varchar(8) null
);
create index ix_tkc_g_sn_ck_sn_t_ph_t_yxq_t_scrq on jxc_tkc (g_sn, ck_sn, t_ph, t_yxq, t_scrq);
create table jxc_zpxx (
    id integer primary key autoincrement,
    zp_sn varchar(8) null,
    zp_name nvarchar(32) null,
    zp_jm varchar(32) null,
    zp_sl numeric(28,6) null,
    zp_jf numeric(28,6) null
);
create index ix_zpxx_zp_sn on jxc_zpxx (zp_sn);
create table jxc_zpjh (
    id integer primary key autoincrement,
    zp_sn varchar(8) null,
    zp_jhrq varchar(32) null,
    zp_sl numeric(28,6) null,
    zp_note nvarchar(200) null,
    a_name nvarchar(32) null
);
create index ix_zpjh_zp_sn on jxc_zpjh (zp_sn);
create table jxc_zsd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    gl_xsdjh varchar(16) null,
    zp_zsrq varchar(32) null,
    zp_sl numeric(28,6) null,
    zp_zl numeric(28,6) null,
    zp_note nvarchar(200) null,
    a_name nvarchar(32) null
);
create index ix_zsd_gl_djh on jxc_zsd (gl_djh);
create table jxc_zszp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    zp_sn varchar(8) null,
    zp_sl numeric(28,6) null,
    a_name nvarchar(32) null
);
create index ix_zszp_gl_djh on jxc_zszp (gl_djh);
create table jxc_yjlx (
    id integer primary key autoincrement,
    g_yjlx nvarchar(32) null,
    lx_sn varchar(8) null
);
create table jxc_tym (
    id integer primary key autoincrement,
    g_tym nvarchar(64) null,
    tym_sn varchar(8) null
);
create table jxc_ysyfk (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    k_rq varchar(32) null,
    k_fkfs varchar(32) null,
    k_yfje numeric(28,6) null,
    k_sfje numeric(28,6) null,
    k_qcje numeric(28,6) null,
    k_yhje numeric(28,6) null,
    k_ljje numeric(28,6) null,
    k_flag integer null,
    k_type varchar(4) null,
    k_djlx varchar(4) null,
    k_djtxt nvarchar(16) null,
    gl_djh2 varchar(16) null,
    k_note nvarchar(200) null,
    u_sn varchar(8) null,
    a_name nvarchar(32) null,
    k_ghskh varchar(8) null
);
create index ix_ysyfk_k_type_k_ghskh_k_rq_id on jxc_ysyfk (k_type, k_ghskh, k_rq, id);
create index ix_ysyfk_gl_djh on jxc_ysyfk (gl_djh);
create index ix_ysyfk_gl_djh2 on jxc_ysyfk (gl_djh2);
create table jxc_jxchz (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    hz_txt1 nvarchar(32) null,
    hz_txt2 nvarchar(32) null,
    id2 integer null,
    hz_flag varchar(4) null,
    hz_kc numeric(28,6) null,
    hz_kczje numeric(28,6) null,
    hz_rksl numeric(28,6) null,
    hz_rkzje numeric(28,6) null,
    hz_cksl numeric(28,6) null,
    hz_ckzje numeric(28,6) null,
    hz_glkc numeric(28,6) null,
    hz_glkczje numeric(28,6) null,
    a_name nvarchar(32) null
);
create table jxc_kcpdsp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    pd_sl numeric(28,6) null,
    pd_dj numeric(28,6) null,
    pd_zje numeric(28,6) null,
    id2 integer null,
    kc_sl numeric(28,6) null,
    kc_zsl numeric(28,6) null,
    a_name nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_kcpdsp_gl_djh on jxc_kcpdsp (gl_djh);
create table jxc_bqjl (
    id integer primary key autoincrement,
    bq_txt text null,
    bq_flag varchar(8) null
);
create table jxc_rksp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    rk_sl numeric(28,6) null,
    g_sn varchar(32) null,
    a_name nvarchar(32) null,
    j_sn varchar(16) null,
    id2 integer null,
    t_jhrq varchar(32) null,
    rk_zsl numeric(28,6) null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null,
    g_xlh text null
);
create index ix_rksp_gl_djh on jxc_rksp (gl_djh);
create index ix_rksp_j_sn on jxc_rksp (j_sn);
create index ix_rksp_id2 on jxc_rksp (id2);
create table jxc_rkd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    rk_rq varchar(32) null,
    rk_zsl numeric(28,6) null,
    ck_sn varchar(8) null,
    ghs_sn varchar(8) null,
    u_sn varchar(8) null,
    rk_note nvarchar(200) null,
    a_name nvarchar(32) null,
    rk_status integer null,
    rk_checker nvarchar(32) null,
    rk_chkrq varchar(16) null
);
create index ix_rkd_gl_djh on jxc_rkd (gl_djh);
create table jxc_cksp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    ck_sl numeric(28,6) null,
    g_sn varchar(32) null,
    a_name nvarchar(32) null,
    gl_djh2 varchar(16) null,
    id2 integer null,
    t_jhrq varchar(32) null,
    ck_zsl numeric(28,6) null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null,
    g_xlh text null
);
create index ix_cksp_gl_djh on jxc_cksp (gl_djh);
create index ix_cksp_gl_djh2 on jxc_cksp (gl_djh2);
create index ix_cksp_id2 on jxc_cksp (id2);
create table jxc_ckd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    ck_rq varchar(32) null,
    ck_zsl numeric(28,6) null,
    ck_sn varchar(8) null,
    kh_sn varchar(8) null,
    u_sn varchar(8) null,
    ck_note nvarchar(200) null,
    a_name nvarchar(32) null,
    ck_status integer null,
    ck_checker nvarchar(32) null,
    ck_chkrq varchar(16) null
);
create index ix_ckd_gl_djh on jxc_ckd (gl_djh);
create table jxc_ysyfk_dj (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    k_rq varchar(32) null,
    k_fkfs varchar(32) null,
    k_yfje numeric(28,6) null,
    k_sfje numeric(28,6) null,
    k_qcje numeric(28,6) null,
    k_yhje numeric(28,6) null,
    k_ljje numeric(28,6) null,
    k_flag integer null,
    k_type varchar(4) null,
    k_djlx varchar(4) null,
    k_djtxt nvarchar(16) null,
    gl_djh2 varchar(16) null,
    k_note nvarchar(200) null,
    k_check bit null,
    k_checker nvarchar(32) null,
    k_chkrq varchar(16) null,
    u_sn varchar(8) null,
    a_name nvarchar(32) null,
    k_ghskh varchar(8) null
);
create index ix_ysyfk_dj_gl_djh on jxc_ysyfk_dj (gl_djh);
create index ix_ysyfk_dj_gl_djh2 on jxc_ysyfk_dj (gl_djh2);
create table jxc_fpdjb (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    fp_rq varchar(32) null,
    fp_no varchar(32) null,
    fp_yfje numeric(28,6) null,
    fp_sfje numeric(28,6) null,
    fp_kpje numeric(28,6) null,
    fp_qcje numeric(28,6) null,
    fp_ljje numeric(28,6) null,
    fp_flag integer null,
    fp_type varchar(4) null,
    fp_djlx varchar(4) null,
    fp_djtxt nvarchar(16) null,
    fp_note nvarchar(200) null,
    fp_ghskh varchar(8) null,
    fp_check bit null,
    fp_checker nvarchar(32) null,
    fp_chkrq varchar(16) null,
    fp_kprq varchar(32) null,
    u_sn varchar(8) null,
    a_name nvarchar(32) null
);
create index ix_fpdjb_gl_djh on jxc_fpdjb (gl_djh);
create index ix_fpdjb_fp_type_fp_ghskh_fp_rq_id on jxc_fpdjb (fp_type, fp_ghskh, fp_rq, id);
create table jxc_kdd (
    id integer primary key autoincrement,
    kd_dh varchar(32) null,
    kg_sn varchar(8) null,
    kd_rq varchar(32) null,
    kd_zl numeric(28,6) null,
    kd_je numeric(28,6) null,
    kd_jjr nvarchar(32) null,
    kd_src nvarchar(32) null,
    kd_dwmc nvarchar(64) null,
    kd_address nvarchar(200) null,
    kd_tele varchar(32) null,
    kd_mobile varchar(32) null,
    kd_zip varchar(8) null,
    kd_sjr nvarchar(32) null,
    kd_dest nvarchar(32) null,
    kd_dwmc2 nvarchar(64) null,
    kd_address2 nvarchar(200) null,
    kd_tele2 varchar(32) null,
    kd_mobile2 varchar(32) null,
    kd_zip2 varchar(8) null,
    kd_note nvarchar(200) null,
    gl_djh varchar(16) null,
    a_name nvarchar(32) null
);
create index ix_kdd_gl_djh on jxc_kdd (gl_djh);
create table jxc_kdgs (
    id integer primary key autoincrement,
    kg_sn varchar(8) null,
    kg_name nvarchar(64) null
);
create table jxc_goodstm (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    g_sptm varchar(64) null
);
create index ix_goodstm_g_sn on jxc_goodstm (g_sn);
create index ix_goodstm_g_sptm on jxc_goodstm (g_sptm);
create table jxc_goodsdw (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    g_zhxs numeric(28,6) null,
    g_jj numeric(28,6) null,
    g_sj numeric(28,6) null,
    g_sj1 numeric(28,6) null,
    g_sj2 numeric(28,6) null,
    g_sj3 numeric(28,6) null,
    g_sj4 numeric(28,6) null,
    g_sj5 numeric(28,6) null,
    g_lsj numeric(28,6) null,
    g_scjj numeric(28,6) null,
    g_cbj numeric(28,6) null,
    g_pjjj numeric(28,6) null
);
create index ix_goodsdw_g_sn on jxc_goodsdw (g_sn);
create index ix_goodsdw_g_sptm on jxc_goodsdw (g_sptm);
create table jxc_goodsdwtmp (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    g_zhxs numeric(28,6) null,
    g_jj numeric(28,6) null,
    g_sj numeric(28,6) null,
    g_sj1 numeric(28,6) null,
    g_sj2 numeric(28,6) null,
    g_sj3 numeric(28,6) null,
    g_sj4 numeric(28,6) null,
    g_sj5 numeric(28,6) null,
    g_lsj numeric(28,6) null,
    g_scjj numeric(28,6) null,
    g_cbj numeric(28,6) null,
    g_pjjj numeric(28,6) null,
    a_name nvarchar(32) null
);
create table jxc_tempspxf2 (
    id integer primary key autoincrement,
    g_sn varchar(32) null,
    ts_dj numeric(28,6) null,
    ts_cbj numeric(28,6) null,
    ts_zcb numeric(28,6) null,
    ts_cbj2 numeric(28,6) null,
    ts_sl numeric(28,6) null,
    rid integer null,
    ts_je numeric(28,6) null,
    ts_tax numeric(28,6) null,
    ts_taxdj numeric(28,6) null,
    ts_taxje numeric(28,6) null,
    ts_lsj numeric(28,6) null,
    ts_zje numeric(28,6) null,
    a_name nvarchar(32) null,
    ts_dzl numeric(28,6) null,
    t_jhrq varchar(32) null,
    ts_zhdj numeric(28,6) null,
    ts_note nvarchar(200) null,
    t_zp nvarchar(16) null,
    ts_zsl numeric(28,6) null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    ghs_sn varchar(8) null,
    t_cfsm nvarchar(32) null,
    ts_xm varchar(32) null,
    ts_cardno varchar(32) null,
    t_cfhm nvarchar(32) null,
    t_addr nvarchar(32) null,
    t_mobile nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null,
    gl_djh2 varchar(16) null,
    hy_sn varchar(8) null,
    g_xlh text null
);
create table jxc_poscs (
    id integer primary key autoincrement,
    pos_qxjk integer null,
    pos_jkzl integer null,
    pos_kxjk integer null,
    pos_dkqx bit null,
    pos_tmlx integer null,
    pos_jzqz varchar(4) null,
    pos_jsqz varchar(4) null,
    pos_jews integer null,
    pos_djws integer null,
    pos_zlws integer null
);
create table jxc_hyyh (
    id integer primary key autoincrement,
    hh_sn varchar(8) null,
    hh_name nvarchar(32) null,
    hh_zl integer null,
    hh_yh1 numeric(28,6) null,
    hh_yh2 numeric(28,6) null,
    hh_yh3 numeric(28,6) null,
    hh_zlname nvarchar(32) null,
    hh_note nvarchar(200) null
);
create table jxc_hyczzs (
    id integer primary key autoincrement,
    hs_sn varchar(8) null,
    hs_czje numeric(28,6) null,
    hs_zsje numeric(28,6) null,
    hs_note nvarchar(200) null
);
create table jxc_hyxf (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    hy_sn varchar(8) null,
    xf_rq varchar(32) null,
    xf_je numeric(28,6) null,
    xf_yhje numeric(28,6) null,
    xf_xj numeric(28,6) null,
    xf_czk numeric(28,6) null,
    xf_xyk numeric(28,6) null,
    xf_djq numeric(28,6) null,
    xf_wxje numeric(28,6) null,
    xf_zfbje numeric(28,6) null,
    xf_zlje numeric(28,6) null,
    xf_note nvarchar(200) null,
    xf_zt varchar(32) null,
    xf_fdzt varchar(32) null,
    xf_fd varchar(32) null,
    xf_id varchar(32) null,
    a_name nvarchar(32) null
);
create index ix_hyxf_gl_djh on jxc_hyxf (gl_djh);
create index ix_hyxf_hy_sn on jxc_hyxf (hy_sn);
create table jxc_dept (
    id integer primary key autoincrement,
    de_sn varchar(8) null,
    de_name nvarchar(16) null
);
create table jxc_sms (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    sms_rq varchar(16) null,
    sms_note nvarchar(250) null,
    a_name nvarchar(32) null
);
create index ix_sms_gl_djh on jxc_sms (gl_djh);
create table jxc_smshy (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    hy_sn varchar(8) null,
    hy_mobile varchar(16) null,
    sms_rq varchar(32) null,
    sms_note nvarchar(250) null,
    a_name nvarchar(32) null
);
create index ix_smshy_gl_djh on jxc_smshy (gl_djh);
create table jxc_smscs (
    id integer primary key autoincrement,
    sms_sign varchar(32) null,
    sms_user varchar(32) null,
    sms_pwd varchar(32) null,
    sms_cznote nvarchar(250) null,
    sms_xfnote nvarchar(250) null
);
create table jxc_khjh (
    id integer primary key autoincrement,
    kh_sn varchar(8) null,
    jh_rq varchar(32) null,
    gl_djh varchar(16) null,
    ck_sn varchar(8) null,
    u_sn varchar(8) null,
    jh_status integer null,
    jh_flag varchar(2) null,
    jh_checker nvarchar(32) null,
    jh_chkrq varchar(16) null,
    a_name nvarchar(32) null,
    jh_note nvarchar(200) null
);
create index ix_khjh_gl_djh on jxc_khjh (gl_djh);
create index ix_khjh_kh_sn on jxc_khjh (kh_sn);
create table jxc_khjhsp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    jh_dj numeric(28,6) null,
    jh_zje numeric(28,6) null,
    jh_sl numeric(28,6) null,
    jh_hhsl numeric(28,6) null,
    jh_xssl numeric(28,6) null,
    jh_sl2 numeric(28,6) null,
    jh_yj numeric(28,6) null,
    jh_yj2 numeric(28,6) null,
    jh_zj numeric(28,6) null,
    jh_ts numeric(28,6) null,
    jh_zzj numeric(28,6) null,
    jh_thyj numeric(28,6) null,
    gl_djh2 varchar(16) null,
    jh_flag varchar(4) null,
    jh_kmmc nvarchar(32) null,
    t_ph varchar(64) null,
    t_mjph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null,
    g_xlh text null,
    id2 integer null,
    a_name nvarchar(32) null
);
create index ix_khjhsp_gl_djh on jxc_khjhsp (gl_djh);
create index ix_khjhsp_gl_djh2 on jxc_khjhsp (gl_djh2);
create index ix_khjhsp_id2 on jxc_khjhsp (id2);
create table jxc_khjhsptmp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    jh_dj numeric(28,6) null,
    jh_zje numeric(28,6) null,
    jh_sl numeric(28,6) null,
    jh_hhsl numeric(28,6) null,
    jh_xssl numeric(28,6) null,
    jh_sl2 numeric(28,6) null,
    jh_yj numeric(28,6) null,
    jh_yj2 numeric(28,6) null,
    jh_zj numeric(28,6) null,
    jh_ts numeric(28,6) null,
    jh_zzj numeric(28,6) null,
    jh_thyj numeric(28,6) null,
    gl_djh2 varchar(16) null,
    jh_flag varchar(4) null,
    jh_kmmc nvarchar(32) null,
    t_ph varchar(64) null,
    t_mjph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null,
    g_xlh text null,
    id2 integer null,
    a_name nvarchar(32) null
);
create index ix_khjhsptmp_gl_djh on jxc_khjhsptmp (gl_djh);
create table jxc_gspcs (
    id integer primary key autoincrement,
    gsp_sn varchar(8) null,
    gsp_name nvarchar(32) null,
    gsp_sele bit null
);
create table jxc_hjxx (
    id integer primary key autoincrement,
    hj_sn varchar(8) null,
    hj_name nvarchar(64) null,
    hj_wz nvarchar(32) null,
    hj_flag varchar(1) null
);
create table jxc_cljcsp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    t_sl numeric(28,6) null,
    a_name nvarchar(32) null,
    ls_bz nvarchar(64) null,
    gl_djh2 varchar(16) null,
    t_zlzk nvarchar(32) null,
    t_clqk nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_cljcsp_gl_djh on jxc_cljcsp (gl_djh);
create table jxc_cljcd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    t_rq varchar(32) null,
    t_yhsl numeric(28,6) null,
    t_yhzl nvarchar(32) null,
    t_yhhgsl numeric(28,6) null,
    t_yhpssl numeric(28,6) null,
    t_yhgqsl numeric(28,6) null,
    t_yhycsl numeric(28,6) null,
    t_swsl numeric(28,6) null,
    t_swzl nvarchar(32) null,
    t_swhgsl numeric(28,6) null,
    t_swpssl numeric(28,6) null,
    t_swgqsl numeric(28,6) null,
    t_swycsl numeric(28,6) null,
    t_jxqsl numeric(28,6) null,
    t_jxqzl nvarchar(32) null,
    t_jxqhgsl numeric(28,6) null,
    t_jxqpssl numeric(28,6) null,
    t_jxqycsl numeric(28,6) null,
    t_zysl numeric(28,6) null,
    t_zyzl nvarchar(32) null,
    t_zyhgsl numeric(28,6) null,
    t_zypssl numeric(28,6) null,
    t_zygqsl numeric(28,6) null,
    t_zyycsl numeric(28,6) null,
    t_dnwd numeric(28,6) null,
    t_dnsd numeric(28,6) null,
    t_ylgwd numeric(28,6) null,
    t_ylgsd numeric(28,6) null,
    t_lcgwd numeric(28,6) null,
    t_lcgsd numeric(28,6) null,
    ck_sn varchar(8) null,
    u_sn varchar(8) null,
    t_note nvarchar(200) null,
    a_name nvarchar(32) null,
    t_status integer null,
    t_checker nvarchar(32) null,
    t_chkrq varchar(16) null
);
create index ix_cljcd_gl_djh on jxc_cljcd (gl_djh);
create table jxc_cgplansp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    cp_dj numeric(28,6) null,
    cp_sl numeric(28,6) null,
    cp_je numeric(28,6) null,
    cp_tax numeric(28,6) null,
    cp_taxdj numeric(28,6) null,
    cp_taxje numeric(28,6) null,
    cp_zje numeric(28,6) null,
    cp_rksl numeric(28,6) null,
    cp_zsl numeric(28,6) null,
    cp_dzl numeric(28,6) null,
    cp_dhsl numeric(28,6) null,
    id2 integer null,
    id3 integer null,
    cp_sele integer null,
    cp_sele2 integer null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    g_sn varchar(32) null,
    g_zhxs numeric(28,6) null,
    a_name nvarchar(32) null,
    t_ph varchar(64) null,
    t_mjph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_cgplansp_gl_djh on jxc_cgplansp (gl_djh);
create table jxc_cgplan (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    ghs_sn varchar(8) null,
    ck_sn varchar(8) null,
    cp_rq varchar(32) null,
    cp_yfje numeric(28,6) null,
    cp_sfje numeric(28,6) null,
    cp_note nvarchar(200) null,
    a_name nvarchar(32) null,
    u_sn varchar(8) null,
    cp_fpno varchar(32) null,
    cp_fpje numeric(28,6) null,
    cp_status integer null,
    cp_checker nvarchar(32) null,
    cp_chkrq varchar(16) null,
    cp_jsfs integer null,
    cp_kmmc nvarchar(32) null
);
create index ix_cgplan_gl_djh on jxc_cgplan (gl_djh);
create table jxc_ckwsd (
    id integer primary key autoincrement,
    ck_sn varchar(8) null,
    cw_rq varchar(32) null,
    cw_time varchar(8) null,
    cw_wd varchar(8) null,
    cw_sd varchar(8) null,
    cw_wd2 varchar(8) null,
    cw_sd2 varchar(8) null,
    a_name nvarchar(32) null,
    cw_cs nvarchar(255) null,
    cw_note nvarchar(255) null,
    cw_jly nvarchar(32) null
);
create index ix_ckwsd_ck_sn_cw_rq on jxc_ckwsd (ck_sn, cw_rq);
create table jxc_jxqd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    t_rq varchar(32) null,
    t_hsdy nvarchar(32) null,
    t_bgz nvarchar(32) null,
    t_yx varchar(8) null,
    t_nian varchar(4) null,
    t_yue varchar(4) null,
    t_qsxq integer null,
    t_jsxq integer null,
    t_zt nvarchar(32) null,
    t_jdbs integer null,
    ck_sn varchar(8) null,
    u_sn varchar(8) null,
    t_note nvarchar(200) null,
    a_name nvarchar(32) null,
    t_status integer null,
    t_checker nvarchar(32) null,
    t_chkrq varchar(16) null
);
create index ix_jxqd_gl_djh on jxc_jxqd (gl_djh);
create table jxc_jxqsp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    t_sl numeric(28,6) null,
    a_name nvarchar(32) null,
    ls_bz nvarchar(64) null,
    gl_djh2 varchar(16) null,
    t_zlzk nvarchar(32) null,
    t_clqk nvarchar(32) null,
    t_ph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_jxqsp_gl_djh on jxc_jxqsp (gl_djh);
create table jxc_yghmc (
    id integer primary key autoincrement,
    u_sn varchar(8) null,
    u_name nvarchar(32) null,
    u_jm varchar(32) null,
    u_sex nvarchar(2) null,
    u_duty nvarchar(32) null,
    u_csrq varchar(16) null,
    u_mz nvarchar(16) null,
    u_jg nvarchar(8) null,
    u_xl nvarchar(8) null,
    u_zy nvarchar(32) null,
    u_bysj nvarchar(16) null,
    u_jszc nvarchar(16) null,
    u_zyzg nvarchar(32) null,
    u_pddw nvarchar(64) null,
    u_gw nvarchar(32) null,
    u_gsny varchar(16) null,
    u_dabh varchar(32) null,
    u_islz bit null,
    u_isys bit null,
    de_sn varchar(8) null,
    fd_sn varchar(8) null
);
create index ix_yghmc_u_sn on jxc_yghmc (u_sn);
create table jxc_ygtjb (
    id integer primary key autoincrement,
    u_sn varchar(8) null,
    u_jwbs nvarchar(200) null,
    u_cgjc nvarchar(64) null,
    u_xt nvarchar(64) null,
    u_hyjc nvarchar(64) null,
    u_wgjc nvarchar(64) null,
    u_jcyj nvarchar(64) null,
    u_tjdw nvarchar(32) null,
    u_tjrq varchar(16) null,
    a_name nvarchar(32) null
);
create index ix_ygtjb_u_sn on jxc_ygtjb (u_sn);
create table jxc_ygpxjh (
    id integer primary key autoincrement,
    u_sn varchar(8) null,
    u_rq varchar(32) null,
    u_pxzt nvarchar(32) null,
    u_pxmd nvarchar(64) null,
    u_pxnr nvarchar(200) null,
    u_dd nvarchar(64) null,
    u_js nvarchar(32) null,
    u_ydsj varchar(16) null,
    u_pxdx nvarchar(32) null,
    u_khfs nvarchar(32) null,
    u_pxfs nvarchar(32) null,
    u_bz nvarchar(64) null,
    id2 integer null,
    a_name nvarchar(32) null
);
create table jxc_ygpxjl (
    id integer primary key autoincrement,
    u_sn varchar(8) null,
    u_pxsj varchar(16) null,
    u_pxbx nvarchar(64) null,
    u_khjg nvarchar(64) null,
    u_cj nvarchar(16) null,
    u_pdr nvarchar(16) null,
    u_bz nvarchar(64) null,
    id2 integer null,
    a_name nvarchar(32) null
);
create table jxc_cgsp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    jh_dj numeric(28,6) null,
    jh_sl numeric(28,6) null,
    jh_je numeric(28,6) null,
    jh_tax numeric(28,6) null,
    jh_taxdj numeric(28,6) null,
    jh_taxje numeric(28,6) null,
    jh_zje numeric(28,6) null,
    jh_rksl numeric(28,6) null,
    jh_qxsl numeric(28,6) null,
    jh_zsl numeric(28,6) null,
    jh_dzl numeric(28,6) null,
    gl_djh2 varchar(16) null,
    jh_bz nvarchar(64) null,
    id2 integer null,
    id3 integer null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    g_sn varchar(32) null,
    a_name nvarchar(32) null,
    t_ph varchar(64) null,
    t_mjph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_cgsp_gl_djh on jxc_cgsp (gl_djh);
create table jxc_cgd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    ghs_sn varchar(8) null,
    ck_sn varchar(8) null,
    j_jhrq varchar(16) null,
    j_yfje numeric(28,6) null,
    j_sfje numeric(28,6) null,
    u_sn varchar(8) null,
    j_note nvarchar(200) null,
    a_name nvarchar(32) null,
    gl_djh2 varchar(16) null,
    j_yhje numeric(28,6) null,
    j_hkje numeric(28,6) null,
    j_th integer null,
    j_qk bit null,
    j_status integer null,
    j_checker nvarchar(32) null,
    j_chkrq varchar(16) null,
    j_jsfs integer null,
    j_kmmc nvarchar(32) null,
    ht_sn varchar(8) null,
    j_dhbz integer null
);
create index ix_cgd_gl_djh on jxc_cgd (gl_djh);
create table jxc_xssp (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    g_sn varchar(32) null,
    ls_dj numeric(28,6) null,
    ls_sl numeric(28,6) null,
    ls_je numeric(28,6) null,
    ls_cbj numeric(28,6) null,
    ls_zcb numeric(28,6) null,
    ls_tax numeric(28,6) null,
    ls_taxdj numeric(28,6) null,
    ls_taxje numeric(28,6) null,
    ls_lsj numeric(28,6) null,
    ls_zje numeric(28,6) null,
    ls_cksl numeric(28,6) null,
    a_name nvarchar(32) null,
    ls_dzl numeric(28,6) null,
    ls_bz nvarchar(64) null,
    id2 integer null,
    id3 integer null,
    ls_zhje numeric(28,6) null,
    ls_dhdj numeric(28,6) null,
    ls_zsl numeric(28,6) null,
    dw_name nvarchar(64) null,
    g_sptm varchar(64) null,
    g_zhxs numeric(28,6) null,
    ls_dhbz integer null,
    t_zp nvarchar(16) null,
    ghs_sn varchar(8) null,
    gl_djh2 varchar(16) null,
    t_cfsm nvarchar(32) null,
    ls_xm nvarchar(32) null,
    ls_cardno varchar(32) null,
    t_ph varchar(64) null,
    t_mjph varchar(64) null,
    t_scrq varchar(16) null,
    t_yxq varchar(16) null
);
create index ix_xssp_gl_djh on jxc_xssp (gl_djh);
create table jxc_xsd (
    id integer primary key autoincrement,
    gl_djh varchar(16) null,
    kh_sn varchar(8) null,
    ck_sn varchar(8) null,
    ls_xsrq varchar(32) null,
    ls_yfje numeric(28,6) null,
    ls_sfje numeric(28,6) null,
    u_sn varchar(8) null,
    ls_note nvarchar(200) null,
    a_name nvarchar(32) null,
    gl_djh2 varchar(16) null,
    ls_yhje numeric(28,6) null,
    ls_hkje numeric(28,6) null,
    ls_th integer null,
    ls_qk bit null,
    ls_fdmc varchar(50) null,
    ls_hy varchar(50) null,
    hy_sn varchar(8) null,
    ls_ckrq varchar(16) null,
    ls_status integer null,
    ls_checker nvarchar(32) null,
    ls_chkrq varchar(16) null,
    ls_jsfs integer null,
    ls_kmmc nvarchar(32) null,
    ht_sn varchar(8) null,
    ls_dhbz integer null
);
create index ix_xsd_gl_djh on jxc_xsd (gl_djh);
